#include <Utility/files/name_index.h>

#include <algorithm>
#include <bit>

namespace Torvo {

namespace {

constexpr std::size_t FewestBuckets = 64;

// Every letter whose case partner is not found by a simple rule, or is another one in another locale, is in this class.
constexpr wchar16 AnyOddLetter = 0;

// Where letters with case lie beyond Latin-1 and Cyrillic, in any version of Unicode: Latin with Greek before and
// Cyrillic's rest and Armenian behind, Georgian, Cherokee, the phonetic and the extended blocks, the letterlike signs
// and numbers, the circled letters, Glagolitic to Georgian small letters, the extensions of Cyrillic and Latin, full
// width.
struct Range {
    wchar16 first;
    wchar16 last;
};
constexpr Range RangesWithCase[] = {
    {0x0080, 0x058F}, {0x10A0, 0x10FF}, {0x13A0, 0x13FF}, {0x1C80, 0x1CBF}, {0x1D00, 0x1FFF},
    {0x2100, 0x218F}, {0x24B0, 0x24EF}, {0x2C00, 0x2D2F}, {0xA640, 0xA69F}, {0xA720, 0xA7FF},
    {0xAB30, 0xABBF}, {0xFB00, 0xFB1F}, {0xFF20, 0xFF5F},
};

bool MayHaveCase(wchar16 unit) {
    return std::any_of(std::begin(RangesWithCase), std::end(RangesWithCase),
                       [unit](Range range) { return range.first <= unit && unit <= range.last; });
}

wchar16 AsciiClass(wchar16 unit) {
    const bool isCapital = unit >= 'A' && unit <= 'Z';
    const wchar16 small = isCapital ? static_cast<wchar16>(unit | 0x20) : unit;
    // I is the capital of a dotless i in Turkish, and there is a sign for Kelvin whose small letter is k.
    return small == 'i' || small == 'k' ? AnyOddLetter : small;
}

// The letters from A with grave to y with diaeresis, small and capital 0x20 apart. A with ring is also the sign for
// Angstrom, sharp s and y with diaeresis have their capitals elsewhere, and between O and o with diaeresis stand the
// signs for times and divided by.
wchar16 Latin1Class(wchar16 unit) {
    const auto small = static_cast<wchar16>(unit | 0x20);
    return small == 0xE5 || small == 0xFF || small == 0xF7 ? AnyOddLetter : small;
}

wchar16 CyrillicClass(wchar16 unit) {
    if (unit < 0x0410) return static_cast<wchar16>(unit + 0x50);
    return unit < 0x0430 ? static_cast<wchar16>(unit + 0x20) : unit;
}

}  // namespace

wchar16 CaseClass(wchar16 unit) {
    if (unit < 0x80) return AsciiClass(unit);
    if (unit >= 0xC0 && unit <= 0xFF) return Latin1Class(unit);
    if (unit >= 0x0400 && unit <= 0x045F) return CyrillicClass(unit);
    return MayHaveCase(unit) ? AnyOddLetter : unit;
}

uint32 NameDigest(const FileNameRec& name) {
    // FNV-1a over units; the name first, which differs where directories are the same. The separator between them is no
    // part of a name.
    uint32 digest = 2166136261u;
    const auto add = [&digest](const wchar16* text) {
        for (; *text != 0; ++text) digest = (digest ^ CaseClass(*text)) * 16777619u;
    };
    add(name.name);
    digest = (digest ^ '\\') * 16777619u;
    add(name.directory);
    return digest ^ (digest >> 15);
}

void NameIndex::Reserve(int32 size) {
    const auto count = static_cast<std::size_t>(size);
    if (count <= links.size()) return;
    if (count > links.capacity()) links.reserve(std::max(count, 2 * links.capacity()));
    if (count > buckets.size()) {
        buckets = std::vector<Bucket>(std::max(FewestBuckets, std::bit_ceil(count)));
        for (std::size_t entry = 0; entry < links.size(); ++entry) {
            if (links[entry].present) Chain(static_cast<int32>(entry));
        }
    }
    links.resize(count);
}

// Links an entry in, in front of the first one of its chain that lies behind it in the table; mostly that is the end.
void NameIndex::Chain(int32 entry) {
    Link& link = LinkOf(entry);
    Bucket& bucket = BucketOf(link.digest);
    int32 next = -1;
    if (bucket.last > entry) {
        next = bucket.first;
        while (next < entry) next = LinkOf(next).next;
    }
    link.next = next;
    link.previous = next == -1 ? bucket.last : LinkOf(next).previous;
    (link.previous == -1 ? bucket.first : LinkOf(link.previous).next) = entry;
    (next == -1 ? bucket.last : LinkOf(next).previous) = entry;
}

void NameIndex::Insert(int32 entry, uint32 digest) {
    LinkOf(entry).digest = digest;
    LinkOf(entry).present = true;
    Chain(entry);
}

void NameIndex::Remove(int32 entry) {
    Link& link = LinkOf(entry);
    Bucket& bucket = BucketOf(link.digest);
    (link.previous == -1 ? bucket.first : LinkOf(link.previous).next) = link.next;
    (link.next == -1 ? bucket.last : LinkOf(link.next).previous) = link.previous;
    link = Link();
}

}  // namespace Torvo
