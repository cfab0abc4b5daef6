#include <Utility/string_cache.h>

#include <Utility/bounded_copy.h>
#include <Utility/frame/new_block.h>
#include <Utility/platform/runtime.h>
#include <Utility/platform/text_scan.h>

#include <algorithm>
#include <cstring>
#include <functional>

namespace Torvo {

namespace {

constexpr uint64 firstPosition = 1;
constexpr uint64 mostBytes = 65500;

constexpr uint64 BytesOf(uint64 units) {
    return units * sizeof(wchar16);
}

// The units of a cache whose last entry, at `position`, has a text of `length` units.
constexpr uint64 UnitsWithLast(uint64 position, uint64 recordUnits, uint64 length) {
    return position + recordUnits + length + 1 + recordUnits + 1;
}

// Whether two units differ so that no comparison takes them for equal. Beyond ASCII the comparison itself must say.
bool CertainlyDiffer(wchar16 a, wchar16 b) {
    return a < 0x80 && b < 0x80 && platform::scan::FoldUnit(a) != platform::scan::FoldUnit(b);
}

// The text that is looked for. Cases are paired unit by unit, so texts of different lengths are never equal; the length
// of an entry has to be known anyway, to find the next one.
class Wanted {
public:
    explicit Wanted(const wchar16* text) : text_(text), length_(platform::wcslen(text)) {}

    uint64 Length() const { return length_; }
    bool Equals(const wchar16* other, uint64 otherLength) const {
        if (otherLength != length_ || length_ == 0) return otherLength == length_;
        if (CertainlyDiffer(*other, *text_) || CertainlyDiffer(other[length_ - 1], text_[length_ - 1])) return false;
        return platform::_wcsicmp(other, text_) == 0;
    }
    bool IsBelow(const wchar16* other) const { return platform::_wcsicmp(other, text_) > 0; }

private:
    const wchar16* const text_;
    const uint64 length_;
};

struct Found {
    uint64 position;        // of the equal entry, or of the end
    bool isEntry;           // whether it is an entry
    uint64 firstAbove = 0;  // the first entry above the text, if that was asked for; 0 for none
};

// What a walk gives that comes to the end of the block before any end mark: a place at which nothing can be added.
constexpr Found NoEnd{mostBytes, false};

// From entry to entry up to the end mark, and never beyond the block.
Found Find(const wchar16* cache, const Wanted& wanted, uint64 recordUnits, bool asksForOrder) {
    const uint64 units = memSize(cache) / sizeof(wchar16);
    Found found{firstPosition, false};
    for (;;) {
        const uint64 at = found.position + recordUnits;
        if (at >= units) return NoEnd;
        const wchar16* const text = cache + at;
        // In the loop, and not a call away: most of a look-up is finding where entries end.
        const uint64 length = platform::scan::LengthWithin(text, units - at);
        if (length == units - at) return NoEnd;
        found.isEntry = length > 0 && wanted.Equals(text, length);
        if (length == 0 || found.isEntry) return found;
        if (asksForOrder && found.firstAbove == 0 && wanted.IsBelow(text)) found.firstAbove = found.position;
        found.position += recordUnits + length + 1;
    }
}

// The record of a known text may lie in the cache.
void WriteRecord(wchar16* cache, uint64 position, const void* record, uint64 bytes) {
    if (record != nullptr) std::memmove(cache + position, record, bytes);
}

void ReadRecord(const wchar16* cache, uint64 position, void* record, uint64 bytes) {
    if (record != nullptr) std::memcpy(record, cache + position, bytes);
}

void WriteEntry(wchar16* cache, uint64 position, const wchar16* text, uint64 length, const void* record, uint64 bytes) {
    WriteRecord(cache, position, record, bytes);
    std::memcpy(cache + position + bytes, text, BytesOf(length + 1));
}

uint64 CacheFirst(wchar16** cache, const wchar16* text, const void* record, uint64 recordUnits) {
    const uint64 length = platform::wcslen(text);
    *cache = NewBlock<wchar16>(UnitsWithLast(firstPosition, recordUnits, length), Content::Zero);
    if (*cache == nullptr) return 0;
    WriteEntry(*cache, firstPosition, text, length, record, recordUnits);
    return firstPosition;
}

// The block keeps its old address in *cache until it has a new one.
bool Grow(wchar16** cache, uint64 bytes) {
    void* block = *cache;
    if (!frealloc_(bytes, &block)) return false;
    *cache = static_cast<wchar16*>(block);
    return true;
}

// Opens a gap for an entry. What moves are the entries from there on, the room for a record behind them, and the end
// mark; the record's units at the gap keep what they hold.
void MoveUp(wchar16* cache, uint64 position, uint64 end, uint64 recordUnits, uint64 entryUnits) {
    const uint64 moved = end + recordUnits + 1 - position;
    std::memmove(cache + position + entryUnits, cache + position, BytesOf(moved));
}

// What lies in a cache may move while an entry is added.
bool LiesIn(const wchar16* cache, const void* place) {
    const auto* const block = reinterpret_cast<const unsigned char*>(cache);
    const auto* const byte = static_cast<const unsigned char*>(place);
    return !std::less<>()(byte, block) && std::less<>()(byte, block + memSize(cache));
}

void ClearText(wchar16* text, int textSize) {
    if (text != nullptr && textSize > 0) *text = 0;
}

// Copies the entry at `position` out of a block of `units` units; false if no entry can be there.
bool ReadEntry(const wchar16* cache, uint64 units, uint64 position, wchar16* text, int textSize, void* record,
               uint64 recordUnits) {
    if (position + recordUnits >= units) return false;
    ReadRecord(cache, position, record, recordUnits);
    if (text == nullptr || textSize <= 0) return true;
    // Not beyond the block, if there is no terminator before its end.
    const auto room = static_cast<uint64>(textSize);
    const uint64 left = units - position - recordUnits;
    strcpyn(text, cache + position + recordUnits, std::min(room, left + 1));
    if (room > left + 1) std::fill(text + left + 1, text + room, wchar16{0});
    return true;
}

}  // namespace

uint64 CacheString(wchar16** cache, const wchar16* text, const void* record, int size, bool sorted) {
    if (cache == nullptr || text == nullptr || size < 0) return 0;
    const auto recordUnits = static_cast<uint64>(size);
    if (*cache == nullptr) return CacheFirst(cache, text, record, recordUnits);
    if (*text == 0) return 0;

    const Wanted wanted(text);
    const Found found = Find(*cache, wanted, recordUnits, sorted);
    if (found.isEntry) {
        WriteRecord(*cache, found.position, record, recordUnits);
        return found.position;
    }
    if (LiesIn(*cache, text) || LiesIn(*cache, record)) return 0;
    const uint64 bytes = BytesOf(UnitsWithLast(found.position, recordUnits, wanted.Length()));
    if (bytes > mostBytes || !Grow(cache, bytes)) return 0;
    const uint64 position = found.firstAbove != 0 ? found.firstAbove : found.position;
    MoveUp(*cache, position, found.position, recordUnits, recordUnits + wanted.Length() + 1);
    WriteEntry(*cache, position, text, wanted.Length(), record, recordUnits);
    return position;
}

void GetCachedString(const wchar16* cache, uint32 position, wchar16* text, int textSize, void* record, int size) {
    const uint64 units = memSize(cache) / sizeof(wchar16);
    if (size < 0 || !ReadEntry(cache, units, position, text, textSize, record, static_cast<uint64>(size))) {
        ClearText(text, textSize);
    }
}

bool GetCachedStructure(const wchar16* cache, const wchar16* text, void* record, int size) {
    if (cache == nullptr || text == nullptr || size < 0) return false;
    const auto recordUnits = static_cast<uint64>(size);
    const Found found = Find(cache, Wanted(text), recordUnits, false);
    if (found.isEntry) ReadRecord(cache, found.position, record, recordUnits);
    return found.isEntry;
}

// Counts in units where the entries end, so that the walk stays inside a block without an end mark.
bool GetIthCachedString(const wchar16* cache, int index, wchar16* text, int textSize, void* record, int size) {
    ClearText(text, textSize);
    if (cache == nullptr || index < 0 || size < 0) return false;
    const auto recordUnits = static_cast<uint64>(size);
    const uint64 units = memSize(cache) / sizeof(wchar16);
    uint64 position = firstPosition;
    for (;; --index) {
        const uint64 at = position + recordUnits;
        const uint64 length = at < units ? platform::wcsnlen(cache + at, units - at) : 0;
        if (length == 0) return false;
        if (index == 0) return ReadEntry(cache, units, position, text, textSize, record, recordUnits);
        position = at + length + 1;
    }
}

}  // namespace Torvo
