// A folding table with its codes, and the eleven that the library has.
#pragma once

#include <Utility/platform/types.h>

#include <algorithm>
#include <array>

namespace Torvo {

// CRC-16 with the reflected polynomial A001, started at 0, without a final exclusive-or (known as CRC-16/ARC).
constexpr uint16 Crc16(const uint8* bytes, uint64 count) {
    uint32 crc = 0;
    for (const uint8* at = bytes; at != bytes + count; ++at) {
        crc ^= *at;
        for (int bit = 0; bit < 8; ++bit) crc = (crc & 1) != 0 ? crc >> 1 ^ 0xA001 : crc >> 1;
    }
    return static_cast<uint16>(crc);
}

class NormalizationTable {
public:
    enum eCreateError : int32 {
        eNoBytes = 1,
        eNoCode = 2,  // kept for callers that know it: computing a code cannot fail
    };

    static constexpr uint64 Size = 256;
    // The part that asciiCode is about: printable ASCII.
    static constexpr uint64 AsciiFirst = 32;
    static constexpr uint64 AsciiCount = 95;

    // Copies `Size` bytes. Throws eNoBytes for null.
    constexpr explicit NormalizationTable(const uint8* bytes) {
        if (bytes == nullptr) throw eNoBytes;
        Fill(bytes);
    }
    // The same for bytes that are there, which a compiler can always do ahead.
    constexpr explicit NormalizationTable(const std::array<uint8, Size>& bytes) { Fill(bytes.data()); }
    constexpr virtual ~NormalizationTable() = default;

    uint8 table[Size]{};   // what each byte folds to
    uint16 code = 0;       // the conversion code: of the whole table
    uint16 asciiCode = 0;  // of what it does to printable ASCII

private:
    constexpr void Fill(const uint8* bytes) {
        std::copy_n(bytes, Size, table);
        code = Crc16(table, Size);
        asciiCode = Crc16(table + AsciiFirst, AsciiCount);
    }
};

inline constexpr uint64 NormalizationTableCount = 11;

// The tables, in the order in which they are looked through. Defined in frame/startup.cpp.
extern const NormalizationTable normalizationTables[NormalizationTableCount];

// The table of that code, or null.
const NormalizationTable* FindNormalizationTable(uint16 code);

}  // namespace Torvo
