#include <Utility/conversion.h>
#include <Utility/instance.h>
#include <gtest/gtest.h>
#include <support/vtable_slot.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <memory>
#include <set>
#include <thread>
#include <vector>

namespace charset_converter_test {
namespace {

using namespace Torvo;

constexpr unsigned char unknown = '_';

ZUCHARSET Set(int number) {
    return static_cast<ZUCHARSET>(number);
}

// A service of the test's own, so that its cache is empty.
class Recoding : public testing::Test {
protected:
    Recoding() : former(cCharsetConverter::Instance()), own(cCharsetConverter::Create()) {
        cCharsetConverter::Instance(own.get());
    }
    ~Recoding() override { cCharsetConverter::Instance(former); }

    static unsigned char* Table(ZUCHARSET from, ZUCHARSET to, int* unmapped = nullptr) {
        int ignored = 0;
        unsigned char* table = nullptr;
        EXPECT_TRUE(ConvertCharset(from, to, unmapped != nullptr ? unmapped : &ignored, &table)) << from << " " << to;
        return table;
    }
    static void ExpectRefused(ZUCHARSET from, ZUCHARSET to) {
        unsigned char mark = 0;
        unsigned char* table = &mark;
        int unmapped = -77;
        EXPECT_FALSE(ConvertCharset(from, to, &unmapped, &table)) << from << " " << to;
        EXPECT_EQ(table, &mark);
        EXPECT_EQ(unmapped, -77);
    }

    cCharsetConverter* const former;
    const std::unique_ptr<cCharsetConverter> own;
};

TEST_F(Recoding, TranslatesLettersBetweenSets) {
    const unsigned char* const table = Table(csCodePage850, csWindowsLatin1);
    EXPECT_EQ(table['A'], 'A');
    EXPECT_EQ(table[0x81], 0xFC);  // u with diaeresis
    EXPECT_EQ(table[0x84], 0xE4);  // a with diaeresis
    EXPECT_EQ(table[0x0D], 0x0D);
    EXPECT_EQ(Table(csMacRoman, csWindowsLatin1)[0x8A], 0xE4);
    EXPECT_EQ(Table(csWindowsCyrillic, csISO8859_5)[0xC0], 0xB0);
}

TEST_F(Recoding, AZeroByteBecomesUnknownInEveryTable) {
    EXPECT_EQ(Table(csCodePage850, csWindowsLatin1)[0], unknown);
    EXPECT_EQ(Table(csWindowsThai, csWindowsLatin1)[0], unknown);
    EXPECT_EQ(Table(csLMBCS2, csLICS)[0], unknown);
}

TEST_F(Recoding, ACharacterOnlyAtTheLastByteOfTheTargetIsUnmapped) {
    int toLatin1 = 0;
    EXPECT_EQ(Table(csCodePage850, csWindowsLatin1, &toLatin1)[0x98], unknown);
    // The same character is held at 0x98 itself, and at 0xD8 in MacRoman.
    EXPECT_EQ(Table(csCodePage850, csMacRoman)[0x98], 0xD8);
    EXPECT_EQ(Table(csWindowsLatin1, csCodePage850)[0xFF], 0x98);
    // 0x7F lives at no other place either: it counts too.
    const unsigned char* const table = Table(csCodePage850, csWindowsLatin1);
    int count = 0;
    for (int byte = 1; byte < 256; ++byte) count += table[byte] == unknown && byte != unknown ? 1 : 0;
    EXPECT_EQ(toLatin1, count);
}

TEST_F(Recoding, TheLowestByteOfSeveralIsTaken) {
    // 2018 is at 80 and at 90 of LICS, and 0020 at 20, 9A and 9D.
    EXPECT_EQ(Table(csMacRoman, csLICS)[0xD4], 0x80);
    EXPECT_EQ(Table(csMacRoman, csLICS)[0x20], 0x20);
    EXPECT_EQ(Table(csMacRoman, csMacArabic)[0x20], 0x20);
}

TEST_F(Recoding, BytesWithoutAMeaningAreCounted) {
    // Of the 255 bytes, CodePage437 has 255 less the 28 controls below 0x20; ISO8859_1 leaves out more.
    int unmapped = -1;
    const unsigned char* const table = Table(csISO8859_1, csWindowsLatin1, &unmapped);
    EXPECT_EQ(table[0x01], unknown);
    EXPECT_EQ(table[0xC0], unknown);
    EXPECT_EQ(table[0xC1], 0xC1);
    EXPECT_EQ(table[0xFF], unknown);
    // 28 controls, 7F to A0, C0, D0, DE, F0, FE, and FF, whose only home in the target is FF.
    EXPECT_EQ(unmapped, 28 + 34 + 5 + 1);
}

TEST_F(Recoding, PairsThatHaveNoTableAreRefused) {
    ExpectRefused(csWindowsLatin1, csWindowsLatin1);
    ExpectRefused(csNeutral, csWindowsLatin1);
    ExpectRefused(csWindowsLatin1, csNeutral);
    ExpectRefused(csWindowsLatin1, csWindowsJapanese);
    ExpectRefused(csWindowsJapanese, csWindowsLatin1);
    ExpectRefused(csLMBCS, csLICS);
    ExpectRefused(csUTF8, csUTF16);
    for (const int number : {-2147483647 - 1, -1, 59, 1000, 2147483647}) {
        ExpectRefused(Set(number), csWindowsLatin1);
        ExpectRefused(csWindowsLatin1, Set(number));
    }
}

// An empty slot is marked with -1, which must not be found.
TEST_F(Recoding, TheMarkOfAnEmptySlotIsNoPair) {
    ExpectRefused(csUnknown, csUnknown);
}

TEST_F(Recoding, ExactlyTheFortyFourSetsHaveTables) {
    int withTable = 0;
    for (int number = 1; number < 59; ++number) {
        unsigned char* table = nullptr;
        int unmapped = 0;
        const ZUCHARSET other = number == csWindowsLatin1 ? csWindowsLatin2 : csWindowsLatin1;
        withTable += ConvertCharset(Set(number), other, &unmapped, &table) ? 1 : 0;
    }
    EXPECT_EQ(withTable, 44);
}

TEST_F(Recoding, ACachedPairLeavesTheCountUntouched) {
    int unmapped = -1;
    unsigned char* const first = Table(csCodePage850, csWindowsLatin1, &unmapped);
    EXPECT_GT(unmapped, 0);
    unmapped = -77;
    EXPECT_EQ(Table(csCodePage850, csWindowsLatin1, &unmapped), first);
    EXPECT_EQ(unmapped, -77);
}

TEST_F(Recoding, BothDirectionsAreTablesOfTheirOwn) {
    unsigned char* const there = Table(csCodePage850, csWindowsLatin1);
    unsigned char* const back = Table(csWindowsLatin1, csCodePage850);
    EXPECT_NE(there, back);
    EXPECT_EQ(there[0x81], 0xFC);
    EXPECT_EQ(back[0xFC], 0x81);
}

TEST_F(Recoding, TheEleventhPairTakesThePlaceOfTheFirst) {
    std::set<unsigned char*> tables;
    unsigned char* const first = Table(csMacRoman, Set(1));
    tables.insert(first);
    unsigned char* const second = Table(csMacRoman, Set(2));
    tables.insert(second);
    for (int to = 3; to <= 10; ++to) tables.insert(Table(csMacRoman, Set(to)));
    EXPECT_EQ(tables.size(), 10u);

    // A use does not protect the first pair, and a refused pair takes no slot.
    EXPECT_EQ(Table(csMacRoman, Set(1)), first);
    ExpectRefused(csMacRoman, csWindowsJapanese);

    unsigned char* const eleventh = Table(csMacRoman, csCodePage850);
    EXPECT_EQ(eleventh, first);
    EXPECT_EQ(first[0x8A], 0x84);

    // The first pair is built again, in the second slot, and counts again.
    int unmapped = -77;
    EXPECT_EQ(Table(csMacRoman, Set(1), &unmapped), second);
    EXPECT_NE(unmapped, -77);
}

TEST_F(Recoding, NullForTheCountOrTheTableDoesNoHarm) {
    unsigned char* table = nullptr;
    EXPECT_TRUE(ConvertCharset(csMacRoman, csLICS, nullptr, &table));
    EXPECT_NE(table, nullptr);
    int unmapped = -77;
    EXPECT_FALSE(ConvertCharset(csMacRoman, csLMBCS1, &unmapped, nullptr));
    EXPECT_EQ(unmapped, -77);
}

TEST(RecodingService, OperationsStandInTheirPublishedOrder) {
    EXPECT_EQ(test::SlotOf(&cCharsetConverter::ConvertCharset), 2u);
}

TEST(RecodingService, LiesUnderItsKey) {
    EXPECT_EQ(GetInstanceData()->GetSlot(4), cCharsetConverter::Instance());
    EXPECT_NE(cCharsetConverter::Instance(), nullptr);
}

// Answers every pair with one table.
class OneTable : public cCharsetConverter {
public:
    bool ConvertCharset(ZUCHARSET from, ZUCHARSET to, int* unmapped, unsigned char** table) override {
        asked = {from, to};
        *unmapped = 5;
        *table = bytes;
        return true;
    }
    std::pair<int, int> asked;
    unsigned char bytes[256] = {};
};

TEST(RecodingService, CanBeReplaced) {
    cCharsetConverter* const former = cCharsetConverter::Instance();
    OneTable service;
    EXPECT_TRUE(cCharsetConverter::Instance(&service));
    int unmapped = 0;
    unsigned char* table = nullptr;
    EXPECT_TRUE(ConvertCharset(csNeutral, Set(77), &unmapped, &table));
    EXPECT_EQ(table, service.bytes);
    EXPECT_EQ(unmapped, 5);
    EXPECT_EQ(service.asked, std::make_pair(0, 77));
    EXPECT_TRUE(cCharsetConverter::Instance(former));
    EXPECT_EQ(cCharsetConverter::Instance(), former);
}

TEST(RecodingService, ThreadsHaveTablesOfTheirOwn) {
    int unmapped = 0;
    unsigned char* here = nullptr;
    unsigned char* there = nullptr;
    ASSERT_TRUE(ConvertCharset(csMacRoman, csLICS, &unmapped, &here));
    std::thread([&] {
        EXPECT_TRUE(ConvertCharset(csMacRoman, csLICS, &unmapped, &there));
        EXPECT_NE(here, there);
        EXPECT_EQ(std::memcmp(here, there, 256), 0);
        InstanceData::Destroy(false, false);
    }).join();
}

}  // namespace
}  // namespace charset_converter_test
