#include <Utility/text/string_normalizer.h>

#include <Utility/conversion.h>
#include <Utility/frame/new_block.h>
#include <Utility/locale_info.h>
#include <Utility/platform/runtime.h>
#include <Utility/strings.h>
#include <Utility/text/byte_walk.h>
#include <Utility/text/comparison_sign.h>
#include <Utility/text/short_comparison.h>

#include <cstring>
#include <limits>

namespace Torvo {

namespace {

// Up to so many units of both texts together, or of a text that is folded in place, nothing is allocated.
constexpr uint64 FixedCompareUnits = 512;
constexpr uint64 FixedInPlaceUnits = 256;

// What CompareByUnits answers where single units do not decide.
constexpr int32 Undecided = 2;

// The room for a text in bytes, terminator included; a byte behind it is kept zero, so that a conversion that fails
// half-way leaves a terminated text too.
constexpr uint64 ByteRoom(uint64 length) {
    return 2 * length + 1;
}

constexpr uint16 ReportedCode(ZUCHARSET cs, uint16 code) {
    const bool goesUnderAlias = cs == csWindowsLatin1 && code == StringNormalizerImpl::Latin1Code;
    return goesUnderAlias ? StringNormalizerImpl::Latin1Alias : code;
}

// Compares two units, each by itself: -1 or 1 if they decide, 0 if they fold alike, or Undecided. A unit that differs
// decides only if no combining mark follows it.
inline int32 CompareUnit(const UnitFolding& units, const wchar16* a, const wchar16* b) {
    if (!UnitFolding::MayKnow(*a) || !UnitFolding::MayKnow(*b)) return Undecided;
    const uint16 left = units.Fold(*a);
    const uint16 right = units.Fold(*b);
    if (left == UnitFolding::Unknown || right == UnitFolding::Unknown) return Undecided;
    // The units behind, or the terminator once more.
    const wchar16 nextA = a[left != 0 ? 1 : 0];
    const wchar16 nextB = b[right != 0 ? 1 : 0];
    if (left != right && !units.LeaveAlone(nextA, nextB)) return Undecided;
    return (left > right) - (left < right);
}

// Compares two texts unit by unit: -1, 0 or 1, or Undecided. They may begin anywhere up to the first unit in which two
// whole texts differ: what stands before it becomes the same bytes in both, unless a mark follows, which is undecided.
int32 CompareByUnits(const UnitFolding& units, const wchar16* a, const wchar16* b) {
    for (;; ++a, ++b) {
        const int32 result = CompareUnit(units, a, b);
        if (result != 0 || *a == 0) return result;
    }
}

// Folds a text in place, unit by unit; false, with nothing done, where that does not decide.
bool FoldByUnits(const UnitFolding& units, wchar16* text, uint64 length) {
    for (uint64 index = 0; index < length; ++index) {
        if (!UnitFolding::MayKnow(text[index]) || units.Fold(text[index]) == UnitFolding::Unknown) return false;
    }
    for (uint64 index = 0; index < length; ++index) text[index] = units.Unit(units.Fold(text[index]));
    return true;
}

}  // namespace

void ApplyNormalizationTable(char* text, ZUCHARSET cs, const NormalizationTable& table) {
    const bool multiByte = CharsetDBCS(cs);
    while (*text != 0) {
        char* const next = multiByte ? CharsetNextChar(text, cs) : text + 1;
        if (!multiByte || !CharsetLeadByteEx(text, cs)) {
            *text = static_cast<char>(table.table[static_cast<uint8>(*text)]);
        }
        text = next;
    }
}

StringNormalizerImpl::StringNormalizerImpl(ZUCHARSET cs, const NormalizationTable* foldingTable)
    : charset(cs),
      table(foldingTable != nullptr ? foldingTable : throw eNoTable),
      conversionCode(ReportedCode(cs, foldingTable->code)),
      units(cs, *foldingTable) {}

bool StringNormalizerImpl::Normalize(const wchar16* source, wchar16** result, uint64* resultLength) {
    if (source == nullptr || result == nullptr) return false;
    const uint64 size = platform::wcslen(source) + 1;
    *result = nullptr;
    wchar16* const folded = NewBlock<wchar16>(size);
    if (folded == nullptr) return false;
    std::memcpy(folded, source, size * sizeof(wchar16));
    if (!NormalizeInPlace(folded, 0)) {
        FreeBlock(folded);
        return false;
    }
    *result = folded;
    if (resultLength != nullptr) *resultLength = size;
    return true;
}

bool StringNormalizerImpl::NormalizeInPlace(wchar16* text, uint64 /*capacity*/) {
    if (text == nullptr) return false;
    const uint64 length = platform::wcslen(text);
    if (length == 0 || FoldByUnits(units, text, length)) return true;

    char fixed[ByteRoom(FixedInPlaceUnits) + 1];
    char* const block = length > FixedInPlaceUnits ? NewBlock<char>(ByteRoom(length) + 1) : nullptr;
    if (length > FixedInPlaceUnits && block == nullptr) return false;
    char* const bytes = block != nullptr ? block : fixed;
    Fold(text, length, bytes);
    // The terminator may go on top of the size, which therefore leaves room for it. A folded text that would be longer
    // (a symbolic page may have two bytes to a character, which are folded one by one) leaves an empty one.
    ConvertMBCSCharToSystem(bytes, charset, text, length);
    FreeBlock(block);
    return true;
}

// Most names are short, and the first unit in which they differ decides. Everything else is left to CompareAny, and all
// could be: this only saves time.
//
// Two texts of more than 512 units are compared in a block, or by unit where there is none. So the result may be given
// here when both are short, or when one is and comparing by unit gives the same.
int32 StringNormalizerImpl::Compare(const wchar16* a, const wchar16* b) {
    if (a == nullptr || b == nullptr) return 0;
    if (!CanReadAhead(a) || !CanReadAhead(b)) return CompareAny(a, b);
    const uint32 place = FirstDifference(a, b);
    if (place == ShortTextUnits) return CompareAny(a, b);
    const uint32 atA = UnitAndNext(a + place);
    const uint32 atB = UnitAndNext(b + place);
    const auto unitA = static_cast<wchar16>(atA);
    const auto unitB = static_cast<wchar16>(atB);
    if (unitA == unitB) return 0;
    if (!UnitFolding::StandAlone(atA, atB)) return CompareAny(a, b);
    const uint16 left = units.Fold(unitA);
    const uint16 right = units.Fold(unitB);
    if (!UnitFolding::Differ(left, right)) return CompareAny(a, b);
    const int32 folded = int32{left} - right;
    const bool asByUnit = (folded ^ (int32{unitA} - unitB)) >= 0;
    if (!IsShortText(a) || !(asByUnit || IsShortText(b))) return CompareAny(a, b);
    return folded < 0 ? -1 : 1;
}

int32 StringNormalizerImpl::CompareAny(const wchar16* a, const wchar16* b) const {
    const uint64 lengthA = platform::wcslen(a);
    const uint64 lengthB = platform::wcslen(b);
    if (lengthA + lengthB > FixedCompareUnits) return CompareLong(a, lengthA, b, lengthB);
    const int32 result = CompareByUnits(units, a, b);
    return result != Undecided ? result : CompareShort(a, lengthA, b, lengthB);
}

int32 StringNormalizerImpl::CompareShort(const wchar16* a, uint64 lengthA, const wchar16* b, uint64 lengthB) const {
    char bytes[2 * FixedCompareUnits + 4];
    return CompareConverted(a, lengthA, b, lengthB, bytes);
}

// The block is asked for before anything is compared, since a text without one is compared in another way.
int32 StringNormalizerImpl::CompareLong(const wchar16* a, uint64 lengthA, const wchar16* b, uint64 lengthB) const {
    const uint64 both = lengthA + lengthB + 2;
    char* const block = both <= std::numeric_limits<uint32>::max() ? NewBlock<char>(2 * both) : nullptr;
    if (block == nullptr) return zuStrCmp(a, b);
    int32 result = CompareByUnits(units, a, b);
    if (result == Undecided) result = CompareConverted(a, lengthA, b, lengthB, block);
    FreeBlock(block);
    return result;
}

// `bytes` has room for twice the units of both texts and four more.
int32 StringNormalizerImpl::CompareConverted(const wchar16* a, uint64 lengthA, const wchar16* b, uint64 lengthB,
                                             char* bytes) const {
    char* const bytesOfB = bytes + ByteRoom(lengthA) + 1;
    Fold(a, lengthA, bytes);
    Fold(b, lengthB, bytesOfB);
    return Sign(std::strcmp(bytes, bytesOfB));
}

void StringNormalizerImpl::Fold(const wchar16* text, uint64 length, char* bytes) const {
    std::memset(bytes, 0, ByteRoom(length) + 1);
    ConvertSystemToMBCSChar(text, bytes, charset, ByteRoom(length), false);
    ApplyNormalizationTable(bytes, charset, *table);
}

uint32 StringNormalizerImpl::GetLCID() {
    return GetLocaleIdentifier();
}

bool StringNormalizerImpl::IsNormalized(const wchar16* /*text*/) {
    return false;
}

void StringNormalizerImpl::SetActive(bool isActive) {
    active = isActive;
}

}  // namespace Torvo
