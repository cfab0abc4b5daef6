#include <Utility/files/file_cache.h>

#if defined(TORVO_CHECK_INVARIANTS) || !defined(NDEBUG)

#include <vector>

namespace Torvo {

namespace {

// Counts how often each entry is met, and tells when one is met twice or does not exist.
class Meetings {
public:
    explicit Meetings(int32 entries) : met(static_cast<std::size_t>(entries)) {}
    bool Meet(int32 entry) {
        if (entry < 0 || static_cast<std::size_t>(entry) >= met.size()) return false;
        if (met[static_cast<std::size_t>(entry)]) return false;
        met[static_cast<std::size_t>(entry)] = true;
        return true;
    }

private:
    std::vector<bool> met;
};

}  // namespace

bool FileCacheImpl::InvariantsHold() const {
    const int32 freeBlocks = usableBlocks - heldBlocks;

    Meetings inSorted(usableBlocks);
    for (int position = 0; position < usableBlocks; ++position) {
        const int32 entry = sorted[position];
        if (!inSorted.Meet(entry)) return false;
        if (IsFull(entry) != (position >= freeBlocks)) return false;
        if (position > freeBlocks && Compare(&sorted[position - 1], &sorted[position]) >= 0) return false;
        if (index.Find(entries[entry].handle, entries[entry].block) != (IsFull(entry) ? entry : -1)) return false;
        if (entries[entry].slot != entry) return false;
        if (!IsFull(entry) && (entries[entry].block != 0 || entries[entry].flags != 0)) return false;
        if (entries[entry].count < 0 || entries[entry].count > blockSize) return false;
    }
    if (sorted < sortedRoom.Start() || sorted > sortedRoom.Start() + totalBlocks) return false;

    Meetings inCircle(usableBlocks);
    int32 entry = head;
    for (int32 met = 0; met < usableBlocks; ++met) {
        if (!inCircle.Meet(entry)) return false;
        if (IsFull(entry) != (met < heldBlocks)) return false;
        if (entries[entries[entry].next].prev != entry) return false;
        if (met == usableBlocks - 1 && entry != tail) return false;
        entry = entries[entry].next;
    }
    if (entry != head || lastUsed.entry != &entries[head]) return false;
    if (!IsFull(head) || lastUsed.size == 0) return true;
    return lastUsed.bytes == BytesOf(head) && static_cast<int64>(lastUsed.start) == OffsetOf(entries[head]);
}

}  // namespace Torvo

#endif
