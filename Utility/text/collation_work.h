// What a Unicode normalizer works in: the input made ready for the collator, and its key.
#pragma once

#include <Utility/platform/collation.h>

namespace Torvo {

// Room that grows and is kept, so that a key costs no allocation once the room is large enough. Its content is lost
// when it grows.
template <typename T>
class WorkRoom {
public:
    WorkRoom() = default;
    ~WorkRoom();
    WorkRoom(const WorkRoom&) = delete;
    WorkRoom& operator=(const WorkRoom&) = delete;

    // Room for `count` elements; false, with what was there kept, if memory is short.
    bool Reserve(int32 count);
    T* Start() { return elements; }
    int32 Size() const { return size; }

private:
    static constexpr int32 FixedSize = 512;

    T fixed[FixedSize];
    T* elements = fixed;
    int32 size = FixedSize;
};

class sCollationWork {
public:
    sCollationWork(const platform::CollationCalls& collationCalls, const platform::Collator* textCollator,
                   bool upperFirst)
        : calls(collationCalls), collator(textCollator), toUpper(upperFirst) {}

    // Takes a text: upper-cased if that is asked for, and composed. False, and no text, on failure. What is taken is
    // good until `text` changes, since a text that needs no change is not copied.
    bool SetText(const wchar16* text);
    // Whether all of its units are below the first combining mark.
    bool IsPlain() const { return isPlain; }

    // Compares the text with that of another area, as the collator does by itself.
    int32 CompareWith(const sCollationWork& other) const;

    // Computes the key of the text. False on failure.
    bool ComputeKey();
    // The key, and how many bytes it has, the zero byte at its end included. Good until the next call of ComputeKey.
    const uint8* Key() { return key.Start(); }
    uint64 KeySize() const { return keySize; }

private:
    using Conversion = int32 (*)(const wchar16* text, int32 length, wchar16* target, int32 size, int32* status);

    bool Convert(Conversion convert, WorkRoom<wchar16>& room);

    const platform::CollationCalls& calls;
    const platform::Collator* const collator;
    const bool toUpper;

    WorkRoom<wchar16> upper;
    WorkRoom<wchar16> composed;
    WorkRoom<uint8> key;
    const wchar16* prepared = nullptr;
    int32 length = 0;
    bool isPlain = false;
    uint64 keySize = 0;
};

// Compares two texts, of which one may be a key text but not both: -1, 0 or 1. Each has a work area of its own. (Key
// texts have a road to themselves, which is quick because this one is not part of it.)
int32 CompareTexts(sCollationWork& first, const wchar16* a, sCollationWork& second, const wchar16* b);

}  // namespace Torvo
