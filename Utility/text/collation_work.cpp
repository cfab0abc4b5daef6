#include <Utility/text/collation_work.h>

#include <Utility/platform/runtime.h>
#include <Utility/text/comparison_sign.h>
#include <Utility/text/key_text.h>

#include <algorithm>
#include <cstring>
#include <limits>

namespace Torvo {

namespace {

// Whether no unit is 300 or above, the first combining mark: such text is composed, whatever stands beside what. Four
// units at a time: none of the upper bits, nor both of the two below them.
bool IsComposed(const wchar16* text, int32 length) {
    constexpr uint64 upperBits = 0xFC00'FC00'FC00'FC00;
    constexpr uint64 bit9 = 0x0200'0200'0200'0200;
    const auto isBelow = [](uint64 fourUnits) {
        return ((fourUnits & upperBits) | (fourUnits & fourUnits << 1 & bit9)) == 0;
    };
    const wchar16* const end = text + length;
    for (; end - text >= 4; text += 4) {
        uint64 fourUnits;
        std::memcpy(&fourUnits, text, sizeof fourUnits);
        if (!isBelow(fourUnits)) return false;
    }
    return std::all_of(text, end, isBelow);
}

// The key of the text in a work area; null if it cannot be had.
const uint8* ComputedKey(sCollationWork& work) {
    return work.ComputeKey() ? work.Key() : nullptr;
}

}  // namespace

template <typename T>
WorkRoom<T>::~WorkRoom() {
    if (elements != fixed) platform::free(elements);
}

template <typename T>
bool WorkRoom<T>::Reserve(int32 count) {
    if (count <= size) return true;
    void* const block = platform::malloc(static_cast<uint64>(count) * sizeof(T));
    if (block == nullptr) return false;
    if (elements != fixed) platform::free(elements);
    elements = static_cast<T*>(block);
    size = count;
    return true;
}

bool sCollationWork::SetText(const wchar16* text) {
    const uint64 units = platform::wcslen(text);
    if (units > static_cast<uint64>(std::numeric_limits<int32>::max() / 4)) return false;
    prepared = text;
    length = static_cast<int32>(units);
    if (toUpper && !Convert(calls.toUpper, upper)) return false;
    isPlain = IsComposed(prepared, length);
    return isPlain || Convert(calls.compose, composed);
}

// Puts the text through a conversion that writes it to `room`; twice where the room turns out too small.
bool sCollationWork::Convert(Conversion convert, WorkRoom<wchar16>& room) {
    int32 status = 0;
    int32 units = convert(prepared, length, room.Start(), room.Size(), &status);
    if (status == platform::CollationBufferOverflow) {
        if (!room.Reserve(units)) return false;
        status = 0;
        units = convert(prepared, length, room.Start(), room.Size(), &status);
    }
    if (status > 0) return false;
    prepared = room.Start();
    length = units;
    return true;
}

int32 sCollationWork::CompareWith(const sCollationWork& other) const {
    return Sign(calls.compare(collator, prepared, length, other.prepared, other.length));
}

bool sCollationWork::ComputeKey() {
    int32 bytes = calls.getSortKey(collator, prepared, length, key.Start(), key.Size());
    if (bytes > key.Size()) {
        if (!key.Reserve(bytes)) return false;
        bytes = calls.getSortKey(collator, prepared, length, key.Start(), key.Size());
    }
    keySize = bytes > 0 && bytes <= key.Size() ? static_cast<uint64>(bytes) : 0;
    return keySize > 0;
}

// Two texts below the combining marks are compared by the collator itself, which gives what comparing their keys gives,
// and sooner. Beyond them it does not always: it skips what the texts begin with alike, and so loses what a mark
// depends on where accents count from the end, as in Canadian French, or where punctuation is passed over, as in Thai.
int32 CompareTexts(sCollationWork& first, const wchar16* a, sCollationWork& second, const wchar16* b) {
    const bool isKeyA = keytext::HasMark(a);
    const bool isKeyB = keytext::HasMark(b);
    if (!isKeyA && !first.SetText(a)) return 0;
    if (!isKeyB && !second.SetText(b)) return 0;
    if (!isKeyA && !isKeyB && first.IsPlain() && second.IsPlain()) return first.CompareWith(second);
    const uint8* const keyA = isKeyA ? keytext::KeyOf(a) : ComputedKey(first);
    const uint8* const keyB = isKeyB ? keytext::KeyOf(b) : ComputedKey(second);
    return keyA != nullptr && keyB != nullptr ? keytext::CompareKeys(keyA, keyB) : 0;
}

template class WorkRoom<wchar16>;
template class WorkRoom<uint8>;

}  // namespace Torvo
