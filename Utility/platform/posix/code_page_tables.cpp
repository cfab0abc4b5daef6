#include "code_page_tables.h"

#include <algorithm>
#include <iterator>
#include <new>

#include "code_page_encoder.h"

namespace Torvo::platform {

struct CodePageData {
    uint32 number;
    char16_t defaultUnit;
    const char16_t* upper;     // of the bytes 80 to FF
    const char* refused;       // bytes, in hexadecimal
    const char* leads;         // likewise, in ascending order
    const char16_t* pairs;     // RowSize units for each lead
    const char* unitsToBytes;  // what is not the inverse of the other direction, in the notation of the golden vectors
};

namespace {

int HexDigit(char digit) {
    return digit <= '9' ? digit - '0' : digit - 'a' + 10;
}

// Takes a number in hexadecimal off the front of `text`.
int TakeHex(const char*& text) {
    int value = 0;
    while ((*text >= '0' && *text <= '9') || (*text >= 'a' && *text <= 'f')) value = value * 16 + HexDigit(*text++);
    return value;
}

template <typename Take>
void ForEachByte(const char* hexadecimal, Take take) {
    for (; *hexadecimal != 0; hexadecimal += 2) {
        take(static_cast<uint8>(HexDigit(hexadecimal[0]) << 4 | HexDigit(hexadecimal[1])));
    }
}

}  // namespace

// Fills the table of codes, which is made wide first. A page without pairs stores it without the blocks that hold none.
class CodePage::Builder {
public:
    explicit Builder(CodePage& page) : page_(page) {}

    bool Run(const char* unitsToBytes) {
        codes_.reset(new (std::nothrow) uint16[65536]);
        if (codes_ == nullptr) return false;
        std::fill_n(codes_.get(), 65536, NoCode);
        InvertSingles();
        InvertPairs();
        Apply(unitsToBytes);
        return page_.HasPairs() ? StoreWide() : Store();
    }

private:
    // Of several codes for a unit the lowest counts, so the first one found stays.
    void Note(wchar16 unit, int code) {
        if (codes_[unit] == NoCode) codes_[unit] = static_cast<uint16>(code);
    }
    void InvertSingles() {
        for (int byte = 0; byte < 256; ++byte) {
            const auto value = static_cast<uint8>(byte);
            if (!page_.IsLead(value) && !page_.IsRefused(value)) Note(page_.Single(value), byte);
        }
    }
    void InvertPairs() {
        for (int lead = 0; lead < 256; ++lead) {
            const char16_t* row = page_.rows_[static_cast<std::size_t>(lead)];
            for (std::size_t i = 0; row != nullptr && i < RowSize; ++i) {
                if (row[i] != 0) Note(row[i], lead << 8 | static_cast<int>(FirstTrail + i));
            }
        }
    }
    // `unit~code` or `first-last~code` with ascending codes; `=` for `~` where the code leads back to the unit.
    void Apply(const char* text) {
        while (*text != 0) {
            int unit = TakeHex(text);
            const int last = *text == '-' ? TakeHex(++text) : unit;
            int code = TakeHex(++text);
            for (; unit <= last; ++unit, ++code) codes_[static_cast<std::size_t>(unit)] = static_cast<uint16>(code);
            while (*text == ' ') ++text;
        }
    }
    // A page with pairs has codes in most blocks, so that little is lost if all are kept.
    bool StoreWide() {
        for (std::size_t block = 0; block < page_.blocks_.size(); ++block) {
            page_.blocks_[block] = static_cast<uint16>(block * BlockSize);
        }
        page_.codes_ = std::move(codes_);
        return true;
    }
    bool Store() {
        std::size_t used = BlockSize;
        const auto isEmpty = [&](std::size_t block) {
            const uint16* first = codes_.get() + block * BlockSize;
            return std::all_of(first, first + BlockSize, [](uint16 code) { return code == NoCode; });
        };
        for (std::size_t block = 0; block < page_.blocks_.size(); ++block) {
            if (isEmpty(block)) continue;
            page_.blocks_[block] = static_cast<uint16>(used);
            used += BlockSize;
        }
        page_.codes_.reset(new (std::nothrow) uint16[used]);
        if (page_.codes_ == nullptr) return false;
        std::fill_n(page_.codes_.get(), BlockSize, NoCode);
        for (std::size_t block = 0; block < page_.blocks_.size(); ++block) {
            if (page_.blocks_[block] == 0) continue;
            std::copy_n(codes_.get() + block * BlockSize, BlockSize, page_.codes_.get() + page_.blocks_[block]);
        }
        return true;
    }

    CodePage& page_;
    std::unique_ptr<uint16[]> codes_;
};

std::unique_ptr<CodePage> CodePage::Build(const CodePageData& data) {
    std::unique_ptr<CodePage> page(new (std::nothrow) CodePage);
    if (page == nullptr) return nullptr;
    page->defaultUnit_ = data.defaultUnit;
    page->pairs_ = data.pairs;
    ForEachByte(data.refused, [&](uint8 byte) { page->refused_[byte] = true; });
    for (std::size_t byte = 0; byte < 256; ++byte) {
        const char16_t unit = byte < 0x80 ? static_cast<char16_t>(byte) : data.upper[byte - 0x80];
        page->single_[byte] = unit == 0 && page->refused_[byte] ? data.defaultUnit : unit;
    }
    const char16_t* row = data.pairs;
    ForEachByte(data.leads, [&](uint8 byte) {
        page->rows_[byte] = row;
        row += RowSize;
    });
    if (!Builder(*page).Run(data.unitsToBytes)) return nullptr;
    page->linear_ = page->FindLinear();
    return page;
}

// Whether a byte and a unit are each other's, and nothing else has to be looked at.
bool CodePage::LeadsThereAndBack(int byte) const {
    const auto value = static_cast<uint8>(byte);
    const wchar16 unit = Single(value);
    return !IsLead(value) && !IsRefused(value) && unit >= 0x80 && UnitCodes()[unit] == byte && !MayCombine(unit);
}

LinearBytes CodePage::FindLinear() const {
    LinearBytes longest = linear_;
    int first = 0x80;
    for (int byte = 0x80; byte < 256; ++byte) {
        if (!LeadsThereAndBack(byte)) {
            first = byte + 1;
            continue;
        }
        const wchar16 unit = Single(static_cast<uint8>(byte));
        if (byte > first && unit != Single(static_cast<uint8>(byte - 1)) + 1) first = byte;
        if (byte - first < longest.last - longest.first) continue;
        longest = {static_cast<uint8>(first), static_cast<uint8>(byte), Single(static_cast<uint8>(first))};
    }
    return longest;
}

// ---- the pages by number ----

namespace {

constexpr CodePageData pages[] = {
#define CODE_PAGE(number, defaultUnit, upper, refused, leads, pairs, unitsToBytes) \
    {number, defaultUnit, upper, refused, leads, pairs, unitsToBytes},
#include "code_page_data.inc"
#undef CODE_PAGE
};

const CodePageData* DataOf(uint32 number) {
    const auto* const found =
        std::find_if(std::begin(pages), std::end(pages), [number](const auto& page) { return page.number == number; });
    return found != std::end(pages) ? found : nullptr;
}

}  // namespace

constexpr std::array<uint32, CodePage::PlaceCount> CodePage::numbers = [] {
    std::array<uint32, PlaceCount> made{};  // 0 has the first place, and no page
    for (const CodePageData& page : pages) made[PlaceOf(page.number)] = page.number;
    static_assert(PlaceOf(1) != 0);
    if (made[0] == 0) made[0] = 1;
    return made;
}();

// Never freed, so that a thread may still convert while the process ends.
std::array<std::atomic<const CodePage*>, CodePage::PlaceCount> CodePage::builtPages{};

bool CodePage::IsLeadByte(uint32 number, uint8 byte) {
    const CodePageData* const data = DataOf(number);
    if (data == nullptr) return false;
    bool found = false;
    ForEachByte(data->leads, [&](uint8 lead) { found |= lead == byte; });
    return found;
}

// Two threads that come first at the same time both make the tables; one of them throws its own away.
const CodePage* CodePage::BuildShared(uint32 number) {
    static_assert(std::all_of(std::begin(pages), std::end(pages),
                              [](const CodePageData& page) { return numbers[PlaceOf(page.number)] == page.number; }));
    std::unique_ptr<CodePage> made = Build(*DataOf(number));
    const CodePage* shared = nullptr;
    auto& place = builtPages[PlaceOf(number)];
    if (made != nullptr && place.compare_exchange_strong(shared, made.get(), std::memory_order_acq_rel)) {
        shared = made.release();
    }
    return shared;
}

}  // namespace Torvo::platform
