// The folding tables as data: their codes, computed here in another way, and their shape.
#include <Utility/text/normalization_table.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <numeric>
#include <set>
#include <string_view>
#include <type_traits>

namespace normalization_table_internal_test {
namespace {

using namespace Torvo;

// CRC-16 as a polynomial division, bit by bit over the message with its bits in the order in which they are sent, and
// not by the shifting register that the library has.
uint16 DividedCrc(const uint8* bytes, std::size_t count) {
    constexpr uint32 polynomial = 0x18005;
    uint32 remainder = 0;
    const auto shiftIn = [&](uint32 bit) {
        remainder = remainder << 1 | bit;
        if ((remainder & 0x10000) != 0) remainder ^= polynomial;
    };
    for (std::size_t index = 0; index < count; ++index) {
        for (uint32 bit = 0; bit < 8; ++bit) shiftIn(bytes[index] >> bit & 1);
    }
    for (int bit = 0; bit < 16; ++bit) shiftIn(0);
    uint32 reflected = 0;
    for (uint32 bit = 0; bit < 16; ++bit) reflected |= (remainder >> bit & 1) << (15 - bit);
    return static_cast<uint16>(reflected);
}

std::array<uint8, 256> Identity() {
    std::array<uint8, 256> bytes;
    std::iota(bytes.begin(), bytes.end(), uint8{0});
    return bytes;
}

struct Codes {
    uint16 code;
    uint16 asciiCode;
};

constexpr Codes stated[] = {{65496, 24861}, {44414, 24861}, {40623, 24861}, {55762, 24861},
                            {32694, 24861}, {21121, 24861}, {34070, 24861}, {41909, 24861},
                            {1298, 24861},  {56485, 44564}, {54273, 24861}};

TEST(FoldingTables, HaveTheStatedCodesInTheirOrder) {
    ASSERT_EQ(std::size(normalizationTables), std::size(stated));
    for (std::size_t number = 0; number < std::size(stated); ++number) {
        const NormalizationTable& table = normalizationTables[number];
        EXPECT_EQ(table.code, stated[number].code) << number;
        EXPECT_EQ(table.asciiCode, stated[number].asciiCode) << number;
        EXPECT_EQ(DividedCrc(table.table, 256), stated[number].code) << number;
        EXPECT_EQ(DividedCrc(table.table + 32, 95), stated[number].asciiCode) << number;
    }
}

TEST(FoldingTables, CodesAreTheUsualCrc16) {
    constexpr std::string_view digits = "123456789";
    const auto* const bytes = reinterpret_cast<const uint8*>(digits.data());
    EXPECT_EQ(Crc16(bytes, digits.size()), 0xBB3D);  // the check value that catalogues of CRCs name for CRC-16/ARC
    EXPECT_EQ(DividedCrc(bytes, digits.size()), 0xBB3D);
    EXPECT_EQ(Crc16(bytes, 0), 0);
}

TEST(FoldingTables, TheFirstFoldsSmallLettersAlone) {
    auto expected = Identity();
    for (uint32 letter = 'a'; letter <= 'z'; ++letter) expected[letter] = static_cast<uint8>(letter - 32);
    EXPECT_TRUE(std::equal(expected.begin(), expected.end(), normalizationTables[0].table));
}

TEST(FoldingTables, AllShareTheLowerHalfButOne) {
    auto expected = Identity();
    for (uint32 letter = 'a'; letter <= 'z'; ++letter) expected[letter] = static_cast<uint8>(letter - 32);
    for (std::size_t number = 0; number < NormalizationTableCount; ++number) {
        if (number == 9) continue;
        EXPECT_TRUE(std::equal(expected.begin(), expected.begin() + 128, normalizationTables[number].table)) << number;
    }
    std::fill(expected.begin() + 0x5B, expected.begin() + 0x61, uint8{0x5E});
    std::fill(expected.begin() + 0x7B, expected.begin() + 0x80, uint8{0x7B});
    EXPECT_TRUE(std::equal(expected.begin(), expected.begin() + 128, normalizationTables[9].table));
}

TEST(FoldingTables, TheOneWithPunctuationCollapsedIsElseTheLast) {
    const uint8* const collapsed = normalizationTables[9].table;
    const uint8* const plain = normalizationTables[10].table;
    for (uint32 byte = 0xC0; byte < 0x100; ++byte) EXPECT_EQ(collapsed[byte], plain[byte]) << byte;
    for (uint32 byte = 0xA0; byte < 0xC0; ++byte) EXPECT_EQ(collapsed[byte], 0xA0) << byte;
    for (const uint32 byte : {0x80u, 0x89u}) EXPECT_EQ(collapsed[byte], 0x7B) << byte;
    for (const uint32 byte : {0x8Du, 0x90u, 0x99u}) EXPECT_EQ(collapsed[byte], 0x8D) << byte;
    for (const uint32 byte : {0x9Du, 0x9Eu}) EXPECT_EQ(collapsed[byte], 0x9D) << byte;
}

TEST(FoldingTables, OnlyTheTerminatorFoldsToATerminator) {
    for (const NormalizationTable& table : normalizationTables) {
        EXPECT_EQ(table.table[0], 0);
        EXPECT_EQ(std::count(table.table, table.table + 256, uint8{0}), 1);
    }
}

TEST(FoldingTables, AreFoundByTheirCodesAlone) {
    for (const NormalizationTable& table : normalizationTables) EXPECT_EQ(FindNormalizationTable(table.code), &table);
    EXPECT_EQ(FindNormalizationTable(5607), nullptr);
    EXPECT_EQ(FindNormalizationTable(0), nullptr);
    EXPECT_EQ(FindNormalizationTable(24861), nullptr);
}

TEST(FoldingTables, ATableCopiesItsBytes) {
    auto bytes = Identity();
    const NormalizationTable table(bytes.data());
    bytes[65] = 1;
    EXPECT_EQ(table.table[65], 65);
    EXPECT_EQ(table.code, DividedCrc(Identity().data(), 256));
    EXPECT_EQ(table.asciiCode, DividedCrc(Identity().data() + 32, 95));
    EXPECT_TRUE(std::has_virtual_destructor_v<NormalizationTable>);
}

TEST(FoldingTables, ATableOfNothingIsRefused) {
    try {
        const NormalizationTable table(nullptr);
        FAIL() << "made";
    } catch (const NormalizationTable::eCreateError error) {
        EXPECT_EQ(error, 1);
    }
    EXPECT_EQ(NormalizationTable::eNoCode, 2);
}

}  // namespace
}  // namespace normalization_table_internal_test
