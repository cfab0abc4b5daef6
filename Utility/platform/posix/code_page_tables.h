// The tables of the code pages with one or two bytes to a character. They are made of code_page_data.inc at a page's
// first use, never change afterwards and are shared by all threads for the life of the process.
#pragma once

#include <Utility/platform/types.h>

#include <array>
#include <atomic>
#include <memory>

namespace Torvo::platform {

// Where a unit has no bytes in a page.
inline constexpr uint16 NoCode = 0xFFFF;

// Bytes that lead to as many units one after the other, and those back to the bytes; none of the units may combine.
struct LinearBytes {
    uint8 first;
    uint8 last;
    wchar16 unit;  // of the first byte

    wchar16 Shift() const { return static_cast<wchar16>(unit - first); }
};

struct CodePageData;

class CodePage {
public:
    // The page of that number; null if there is none, or if memory for its tables is short.
    static const CodePage* Find(uint32 number) {
        if (!Exists(number)) return nullptr;
        const CodePage* const page = builtPages[PlaceOf(number)].load(std::memory_order_acquire);
        return page != nullptr ? page : BuildShared(number);
    }
    // Whether there is a page of that number; makes no tables.
    static bool Exists(uint32 number) { return numbers[PlaceOf(number)] == number; }
    // Whether the byte begins a pair in that page; makes no tables.
    static bool IsLeadByte(uint32 number, uint8 byte);

    bool HasPairs() const { return pairs_ != nullptr; }
    // The longest row of such bytes from 80 up; where there is none, a letter of ASCII.
    LinearBytes Linear() const { return linear_; }

    // ---- bytes to units ----

    // What becomes of a lead byte without a pair, and of a pair that is none.
    wchar16 DefaultUnit() const { return defaultUnit_; }
    const wchar16* SingleUnits() const { return single_.data(); }
    wchar16 Single(uint8 byte) const { return single_[byte]; }
    // The units of the pairs that begin with this byte, for PairIn; null if there are none.
    const wchar16* Row(uint8 lead) const { return rows_[lead]; }
    bool IsLead(uint8 byte) const { return Row(byte) != nullptr; }
    bool IsRefused(uint8 byte) const { return refused_[byte]; }
    // 0 where the two bytes are no pair.
    static wchar16 PairIn(const wchar16* row, uint8 trail) {
        return trail < FirstTrail || trail > LastTrail ? wchar16{0} : row[trail - FirstTrail];
    }
    wchar16 Pair(uint8 lead, uint8 trail) const { return PairIn(Row(lead), trail); }

    // ---- units to bytes ----

    // The codes of all units, by value, so that a loop that stores bytes need not read the places again.
    class Codes {
    public:
        // One byte, or lead and trail; NoCode if there are none. The nearest character counts as well as the exact one.
        uint16 operator[](wchar16 unit) const { return codes_[blocks_[unit / BlockSize] + unit % BlockSize]; }

    private:
        friend class CodePage;
        const uint16* blocks_;
        const uint16* codes_;
    };
    Codes UnitCodes() const {
        Codes codes;
        codes.blocks_ = blocks_.data();
        codes.codes_ = codes_.get();
        return codes;
    }
    // The same as one table by unit, for a page that has pairs.
    const uint16* WideCodes() const { return codes_.get(); }
    // Whether the code leads back to the unit.
    bool IsExact(wchar16 unit, uint16 code) const {
        return unit == (code > 0xFF ? Pair(static_cast<uint8>(code >> 8), static_cast<uint8>(code)) : single_[code]);
    }

private:
    class Builder;

    static constexpr uint8 FirstTrail = 0x40;
    static constexpr uint8 LastTrail = 0xFE;
    static constexpr std::size_t RowSize = LastTrail - FirstTrail + 1;
    static constexpr std::size_t BlockSize = 64;

    bool LeadsThereAndBack(int byte) const;
    LinearBytes FindLinear() const;

    // Each page has a place of its own, by the upper bits of a product that was searched for.
    static constexpr std::size_t PlaceCount = 64;
    static constexpr std::size_t PlaceOf(uint32 number) { return number * 1927036197u >> 26; }
    static const std::array<uint32, PlaceCount> numbers;  // where there is no page, one that has another place
    static std::array<std::atomic<const CodePage*>, PlaceCount> builtPages;

    static std::unique_ptr<CodePage> Build(const CodePageData& data);
    static const CodePage* BuildShared(uint32 number);

    std::array<wchar16, 256> single_{};
    std::array<bool, 256> refused_{};
    std::array<const char16_t*, 256> rows_{};  // by lead byte
    const char16_t* pairs_ = nullptr;
    wchar16 defaultUnit_ = 0;
    LinearBytes linear_{'A', 'A', 'A'};
    // Where in codes_ the block of 64 units begins; in a page without pairs, blocks without any code share the first.
    std::array<uint16, 65536 / BlockSize> blocks_{};
    std::unique_ptr<uint16[]> codes_;
};

}  // namespace Torvo::platform
