#include <Utility/platform/collation.h>
#include <Utility/platform/modules.h>

#include <atomic>
#include <memory>
#include <new>
#include <string>

namespace Torvo::platform {

namespace {

// What was found: the functions that the calls are made of, as ICU declares them but for a status, which is the number
// of an enumeration there.
struct FoundIcu {
    const void* (*getComposer)(int32* status) = nullptr;
    int32 (*normalize)(const void* composer, const wchar16* text, int32 length, wchar16* target, int32 size,
                       int32* status) = nullptr;
    int32 (*toUpper)(wchar16* target, int32 size, const wchar16* text, int32 length, const char* locale,
                     int32* status) = nullptr;
    CollationCalls calls{};
};

// Set once, and never freed: the libraries stay until the process ends.
std::atomic<const FoundIcu*> foundIcu = nullptr;

int32 Compose(const wchar16* text, int32 length, wchar16* target, int32 size, int32* status) {
    const FoundIcu& icu = *foundIcu.load(std::memory_order_acquire);
    return icu.normalize(icu.getComposer(status), text, length, target, size, status);
}

int32 ToUpper(const wchar16* text, int32 length, wchar16* target, int32 size, int32* status) {
    return foundIcu.load(std::memory_order_acquire)->toUpper(target, size, text, length, "", status);
}

// Where the functions of a release are, and what stands behind their names.
struct IcuModules {
    HINSTANCE common = nullptr;
    HINSTANCE collation = nullptr;
    const char* suffix = "";
};

IcuModules LoadModules(CollationLoader load) {
    if (const HINSTANCE icu = load(ZUTEXT("icu.dll"))) return {icu, icu, ""};
    // The data first, on which the others depend.
    if (load(ZUTEXT("icudt55.dll")) == nullptr) return {};
    const HINSTANCE common = load(ZUTEXT("icuuc55.dll"));
    return {common, common != nullptr ? load(ZUTEXT("icuin55.dll")) : nullptr, "_55"};
}

template <typename Function>
bool Find(HINSTANCE module, const std::string& name, Function& function) {
    function = reinterpret_cast<Function>(platform::GetProcAddress(module, name.c_str()));
    return function != nullptr;
}

bool FindFunctions(const IcuModules& from, FoundIcu& icu) {
    if (from.collation == nullptr) return false;
    const std::string suffix = from.suffix;
    icu.calls.compose = Compose;
    icu.calls.toUpper = ToUpper;
    return Find(from.collation, "ucol_open" + suffix, icu.calls.open) &&
           Find(from.collation, "ucol_close" + suffix, icu.calls.close) &&
           Find(from.collation, "ucol_setStrength" + suffix, icu.calls.setStrength) &&
           Find(from.collation, "ucol_getSortKey" + suffix, icu.calls.getSortKey) &&
           Find(from.collation, "ucol_strcoll" + suffix, icu.calls.compare) &&
           Find(from.common, "unorm2_getNFCInstance" + suffix, icu.getComposer) &&
           Find(from.common, "unorm2_normalize" + suffix, icu.normalize) &&
           Find(from.common, "u_strToUpper" + suffix, icu.toUpper);
}

// The one that was found first, which is this one unless another thread was quicker.
const FoundIcu* KeepFirst(std::unique_ptr<FoundIcu> icu) {
    const FoundIcu* first = nullptr;
    if (foundIcu.compare_exchange_strong(first, icu.get(), std::memory_order_acq_rel)) return icu.release();
    return first;
}

const FoundIcu* FindIcu(CollationLoader load) {
    const FoundIcu* const known = foundIcu.load(std::memory_order_acquire);
    if (known != nullptr) return known;
    std::unique_ptr<FoundIcu> icu(new (std::nothrow) FoundIcu);
    if (icu == nullptr || !FindFunctions(LoadModules(load), *icu)) return nullptr;
    return KeepFirst(std::move(icu));
}

}  // namespace

const CollationCalls* FindCollationCalls(CollationLoader load) {
    const FoundIcu* const icu = FindIcu(load);
    return icu != nullptr ? &icu->calls : nullptr;
}

}  // namespace Torvo::platform
