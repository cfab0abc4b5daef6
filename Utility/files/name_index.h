// Finds the entries of the file table that may have a name, without walking the table.
//
// Names are compared by striequ, and what that takes for equal depends on the runtime's character locale, which may
// change while names are in the index. So the index sorts names by something coarser than every such comparison: two
// names that any locale takes for equal have the same digest. Whoever looks a name up compares the candidates himself.
//
// Entries with equal digests modulo the number of buckets form a chain in ascending order of their place in the table,
// which is the order in which candidates are shown.
#pragma once

#include <Utility/files/file_table.h>
#include <Utility/platform/types.h>

#include <vector>

namespace Torvo {

// The class of units that some locale may take for equal to this one, ignoring case.
wchar16 CaseClass(wchar16 unit);
// The digest of a name and its directory.
uint32 NameDigest(const FileNameRec& name);

class NameIndex {
public:
    // Makes room for the entries 0 to `size` - 1, so that Insert needs no memory. Throws std::bad_alloc, and then the
    // index is as it was.
    void Reserve(int32 size);
    void Insert(int32 entry, uint32 digest);
    void Remove(int32 entry);

    // The lowest entry with this digest that `matches(entry)` accepts, or -1.
    template <typename Matches>
    int32 FindFirst(uint32 digest, Matches matches) const {
        if (buckets.empty()) return -1;
        for (int32 entry = BucketOf(digest).first; entry != -1; entry = LinkOf(entry).next) {
            if (LinkOf(entry).digest == digest && matches(entry)) return entry;
        }
        return -1;
    }

private:
    struct Bucket {
        int32 first = -1;
        int32 last = -1;
    };
    struct Link {
        int32 previous = -1;
        int32 next = -1;
        uint32 digest = 0;
        bool present = false;
    };

    // The number of buckets is a power of two.
    Bucket& BucketOf(uint32 digest) { return buckets[digest & (buckets.size() - 1)]; }
    const Bucket& BucketOf(uint32 digest) const { return buckets[digest & (buckets.size() - 1)]; }
    Link& LinkOf(int32 entry) { return links[static_cast<std::size_t>(entry)]; }
    const Link& LinkOf(int32 entry) const { return links[static_cast<std::size_t>(entry)]; }
    void Chain(int32 entry);

    std::vector<Bucket> buckets;
    std::vector<Link> links;  // by entry
};

}  // namespace Torvo
