#include <Utility/platform/collation.h>

#include <atomic>
#include <memory>
#include <new>

#include "icu_functions.h"

namespace Torvo::platform {

namespace {

// Set once, and never freed: the libraries stay until the process ends.
std::atomic<const IcuFunctions*> foundIcu = nullptr;

int32 Compose(const wchar16* text, int32 length, wchar16* target, int32 size, int32* status) {
    const IcuFunctions& icu = *foundIcu.load(std::memory_order_acquire);
    return icu.normalize(icu.getComposer(status), text, length, target, size, status);
}

int32 ToUpper(const wchar16* text, int32 length, wchar16* target, int32 size, int32* status) {
    return foundIcu.load(std::memory_order_acquire)->toUpper(target, size, text, length, "", status);
}

// The one that was found first, which is this one unless another thread was quicker.
const IcuFunctions* KeepFirst(std::unique_ptr<IcuFunctions> icu) {
    const IcuFunctions* first = nullptr;
    if (foundIcu.compare_exchange_strong(first, icu.get(), std::memory_order_acq_rel)) return icu.release();
    return first;
}

const IcuFunctions* FindIcu(CollationLoader load) {
    const IcuFunctions* const known = foundIcu.load(std::memory_order_acquire);
    if (known != nullptr) return known;
    std::unique_ptr<IcuFunctions> icu(new (std::nothrow) IcuFunctions);
    if (icu == nullptr || !FindIcuFunctions(load, *icu)) return nullptr;
    icu->calls.compose = Compose;
    icu->calls.toUpper = ToUpper;
    return KeepFirst(std::move(icu));
}

}  // namespace

const CollationCalls* FindCollationCalls(CollationLoader load) {
    const IcuFunctions* const icu = FindIcu(load);
    return icu != nullptr ? &icu->calls : nullptr;
}

}  // namespace Torvo::platform
