#include <Utility/errors.h>
#include <Utility/instance.h>
#include <Utility/normalizers.h>
#include <Utility/platform/host.h>
#include <gtest/gtest.h>
#include <support/error_texts.h>
#include <support/guarded_buffer.h>
#include <support/owned_text.h>
#include <support/system_charset.h>
#include <support/thread_locale.h>
#include <support/user_locale.h>
#include <support/vtable_slot.h>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace normalizers_test {
namespace {

using namespace Torvo;
using test::SystemCharset;

// A manager of a test's own, made under a system charset.
class Manager {
public:
    explicit Manager(ZUCHARSET systemCharset) {
        const SystemCharset charset(systemCharset);
        manager.reset(StringNormalizerManager::Create());
    }
    StringNormalizerManager* operator->() const { return manager.get(); }

private:
    std::unique_ptr<StringNormalizerManager> manager;
};

// The text that a normalizer leaves in place of another.
wstring16 Folded(StringNormalizer& normalizer, const wstring16& text) {
    test::GuardedBuffer buffer(text.size() + 1);
    text.copy(buffer.Start(), text.size());
    buffer.Start()[text.size()] = 0;
    EXPECT_TRUE(normalizer.NormalizeInPlace(buffer.Start(), 0));
    return buffer.Text();
}

TEST(ConversionCodes, AreThoseOfTheElevenTables) {
    int known = 0;
    for (uint32 code = 0; code <= 0xFFFF; ++code) known += FindConversionTableCode(static_cast<uint16>(code)) ? 1 : 0;
    EXPECT_EQ(known, 11);
    for (const int code : {65496, 44414, 40623, 55762, 32694, 21121, 34070, 41909, 1298, 56485, 54273}) {
        EXPECT_TRUE(FindConversionTableCode(static_cast<uint16>(code))) << code;
    }
    EXPECT_FALSE(FindConversionTableCode(5607));
    EXPECT_FALSE(FindConversionTableCode(0));
}

TEST(ConversionCodes, SuitACharset) {
    EXPECT_EQ(ConversionCodeForCharset(csWindowsLatin2, 0), 40623);
    EXPECT_EQ(ConversionCodeForCharset(csWindowsLatin2, 1030), 40623);
    EXPECT_EQ(ConversionCodeForCharset(csUTF8, 0), 0);
    EXPECT_EQ(ConversionCodeForCharset(csUTF16, 0), 0);
    EXPECT_EQ(ConversionCodeForCharset(csUTF16, 1053), 0);
    for (int charset = -1; charset <= 60; ++charset) {
        if (charset == 10 || charset == 11 || charset == 57 || charset == 58) continue;
        EXPECT_EQ(ConversionCodeForCharset(static_cast<ZUCHARSET>(charset), 0), 65496) << charset;
        EXPECT_EQ(ConversionCodeForCharset(static_cast<ZUCHARSET>(charset), 1053), 65496) << charset;
    }
}

TEST(ConversionCodes, SuitALocaleOfWesternEurope) {
    for (const int32 locale : {1030, 1044, 1083, 2068, 4155, 6203}) {
        EXPECT_EQ(ConversionCodeForCharset(csWindowsLatin1, locale), 34070) << locale;
    }
    for (const int32 locale : {1035, 1053, 2077, 2107, 3131, 5179, 7227, 8251, 9275}) {
        EXPECT_EQ(ConversionCodeForCharset(csWindowsLatin1, locale), 1298) << locale;
    }
    for (const int32 locale : {1031, 1033, 1039, 1, -1, 9, 6, 29, 1030 + 0x10000, 1053 + 0x10000}) {
        EXPECT_EQ(ConversionCodeForCharset(csWindowsLatin1, locale), 44414) << locale;
    }
}

TEST(ConversionCodes, TakeTheThreadsLocaleForNone) {
    const uint32 before = platform::GetThreadLocale();
    for (const auto& [locale, code] : {std::pair{1030u, 34070}, {1035u, 1298}, {1053u, 1298}, {1031u, 44414}}) {
        ASSERT_TRUE(platform::SetThreadLocale(locale));
        EXPECT_EQ(ConversionCodeForCharset(csWindowsLatin1, 0), code) << locale;
    }
    platform::SetThreadLocale(before);
}

TEST(ConversionCodes, LookAtTheLowHalfOfTheThreadsLocale) {
    test::UserLocale locale('.', ',', 3);
    locale.SetIdentifier(0x1041D);
    EXPECT_EQ(ConversionCodeForCharset(csWindowsLatin1, 0), 1298);
}

TEST(TableNormalizer, ReportsTheAliasWithWesternEuropeAlone) {
    const Manager manager(csWindowsLatin1);
    StringNormalizer* const byAlias = manager->GetNormalizer(csWindowsLatin1, 5607, 0);
    ASSERT_NE(byAlias, nullptr);
    EXPECT_EQ(byAlias->GetConversionCode(), 5607);
    EXPECT_EQ(byAlias->GetAsciiCode(), 24861);
    EXPECT_EQ(byAlias->Compare(ZUTEXT("\u00E9"), ZUTEXT("E")), 0);
    EXPECT_EQ(manager->GetNormalizer(csWindowsLatin1, 44414, 0), byAlias);
    EXPECT_EQ(manager->GetNormalizer(csWindowsLatin1, 5607, 7), byAlias);
}

TEST(TableNormalizer, IsFoundByTheAliasWhenMadeByTheCode) {
    const Manager manager(csWindowsLatin1);
    StringNormalizer* const byCode = manager->GetNormalizer(csWindowsLatin1, 44414, 0);
    ASSERT_NE(byCode, nullptr);
    EXPECT_EQ(byCode->GetConversionCode(), 5607);
    EXPECT_EQ(manager->GetNormalizer(csWindowsLatin1, 5607, 0), byCode);
}

TEST(TableNormalizer, AnyTableGoesWithAnyCharset) {
    const Manager manager(csWindowsLatin1);
    StringNormalizer* const cyrillic = manager->GetNormalizer(csWindowsCyrillic, 44414, 0);
    ASSERT_NE(cyrillic, nullptr);
    EXPECT_EQ(cyrillic->GetCharset(), 13);
    EXPECT_EQ(cyrillic->GetConversionCode(), 44414);
    EXPECT_NE(manager->GetNormalizer(csWindowsLatin1, 44414, 0), cyrillic);
    EXPECT_EQ(manager->GetNormalizer(csWindowsCyrillic, 44414, 1053), cyrillic) << "the locale does not count";
    EXPECT_NE(manager->GetNormalizer(csWindowsCyrillic, 55762, 0), cyrillic);
    for (const ZUCHARSET charset : {csNeutral, csMacRoman, csLMBCS, csWindowsJapanese, static_cast<ZUCHARSET>(99)}) {
        StringNormalizer* const other = manager->GetNormalizer(charset, 65496, 0);
        ASSERT_NE(other, nullptr) << charset;
        EXPECT_EQ(other->GetCharset(), charset);
        EXPECT_EQ(other->Compare(ZUTEXT("abc"), ZUTEXT("ABC")), 0) << charset;
    }
}

TEST(TableNormalizer, TheAliasIsNoCodeOfAnotherCharset) {
    const Manager manager(csWindowsLatin1);
    ClearErrors();
    EXPECT_EQ(manager->GetNormalizer(csWindowsLatin2, 5607, 0), nullptr);
    EXPECT_EQ(NumErrors(), 1);
    ClearErrors();
}

TEST(TableNormalizer, AnUnknownCodeIsAnError) {
    const Manager manager(csWindowsLatin1);
    for (const auto& [code, text] :
         {std::pair<uint16, wstring16>{5608, ZUTEXT("5608")}, {0, ZUTEXT("0")}, {65535, ZUTEXT("65535")}}) {
        ClearErrors();
        EXPECT_EQ(manager->GetNormalizer(csWindowsLatin1, code, 0), nullptr);
        ASSERT_EQ(NumErrors(), 1);
        EXPECT_EQ(GetErrorNum(0), 74);
        EXPECT_EQ(GetResourceID(0), 74);
        EXPECT_EQ(test::Message(*cErrorSystem::Instance(), 0, ZUTEXT("^0|^1")), text + ZUTEXT("|"));
    }
    ClearErrors();
}

TEST(TableNormalizer, TellsWhatItIs) {
    const Manager manager(csWindowsLatin1);
    StringNormalizer* const danish = manager->GetNormalizer(csWindowsLatin1, 34070, 0);
    EXPECT_EQ(danish->GetCharset(), csWindowsLatin1);
    EXPECT_EQ(danish->GetConversionCode(), 34070);
    EXPECT_EQ(danish->GetAsciiCode(), 24861);
    EXPECT_EQ(manager->GetNormalizer(csWindowsLatin1, 56485, 0)->GetAsciiCode(), 44564);
    EXPECT_TRUE(danish->IsActive());
    EXPECT_FALSE(danish->IsNormalized(ZUTEXT("ABC")));
    EXPECT_FALSE(danish->IsNormalized(ZUTEXT("")));
    EXPECT_FALSE(danish->IsNormalized(nullptr));
    const wchar16 keyText[] = {0xBBEF, 0xBABF, 0x0101, 0};
    EXPECT_FALSE(danish->IsNormalized(keyText));
}

TEST(TableNormalizer, HasTheLocaleOfTheThreadAtEachCall) {
    const uint32 before = platform::GetThreadLocale();
    const Manager manager(csWindowsLatin1);
    StringNormalizer* const normalizer = manager->GetNormalizer(csWindowsLatin1, 34070, 1030);
    for (const uint32 locale : {1031u, 1053u}) {
        ASSERT_TRUE(platform::SetThreadLocale(locale));
        EXPECT_EQ(normalizer->GetLCID(), locale);
    }
    platform::SetThreadLocale(before);
}

class WesternNormalizer : public testing::Test {
protected:
    const Manager manager{csWindowsLatin1};
    StringNormalizer& normalizer = *manager->GetNormalizer(csWindowsLatin1, 44414, 0);
    StringNormalizer& danish = *manager->GetNormalizer(csWindowsLatin1, 34070, 0);
};

TEST_F(WesternNormalizer, ComparesWithoutCaseAndAccents) {
    EXPECT_EQ(normalizer.Compare(ZUTEXT("r\u00E9sum\u00E9"), ZUTEXT("RESUME")), 0);
    EXPECT_EQ(normalizer.Compare(ZUTEXT("stra\u00DFe"), ZUTEXT("STRASE")), 0);
    EXPECT_EQ(normalizer.Compare(ZUTEXT("a"), ZUTEXT("b")), -1);
    EXPECT_EQ(normalizer.Compare(ZUTEXT("B"), ZUTEXT("a")), 1);
    EXPECT_EQ(normalizer.Compare(ZUTEXT("\u00E9"), ZUTEXT("f")), -1);
    EXPECT_EQ(normalizer.Compare(ZUTEXT("\u0152uvre"), ZUTEXT("ouvre")), 0);
}

TEST_F(WesternNormalizer, ComparesBytesAsUnsigned) {
    EXPECT_EQ(normalizer.Compare(ZUTEXT("\u00A3"), ZUTEXT("a")), 1);
    EXPECT_EQ(normalizer.Compare(ZUTEXT("a"), ZUTEXT("\u00F7")), -1);
}

TEST_F(WesternNormalizer, PutsABeginningFirst) {
    EXPECT_EQ(normalizer.Compare(ZUTEXT(""), ZUTEXT("")), 0);
    EXPECT_EQ(normalizer.Compare(ZUTEXT(""), ZUTEXT("a")), -1);
    EXPECT_EQ(normalizer.Compare(ZUTEXT("a"), ZUTEXT("")), 1);
    EXPECT_EQ(normalizer.Compare(ZUTEXT("abc"), ZUTEXT("AB")), 1);
    EXPECT_EQ(normalizer.Compare(ZUTEXT("ab"), ZUTEXT("ABc")), -1);
}

TEST_F(WesternNormalizer, ComparesNullAsNothing) {
    EXPECT_EQ(normalizer.Compare(nullptr, ZUTEXT("a")), 0);
    EXPECT_EQ(normalizer.Compare(ZUTEXT("a"), nullptr), 0);
}

TEST_F(WesternNormalizer, PutsTheDanishLettersBehindZ) {
    EXPECT_EQ(danish.Compare(ZUTEXT("\u00C6"), ZUTEXT("Z")), 1);
    EXPECT_EQ(danish.Compare(ZUTEXT("\u00C6"), ZUTEXT("\u00D8")), -1);
    EXPECT_EQ(danish.Compare(ZUTEXT("\u00D8"), ZUTEXT("\u00C5")), -1);
    EXPECT_EQ(danish.Compare(ZUTEXT("\u00E4"), ZUTEXT("\u00C6")), 0);
    EXPECT_EQ(danish.Compare(ZUTEXT("\u00F6"), ZUTEXT("\u00D8")), 0);
    EXPECT_EQ(danish.Compare(ZUTEXT("\u00FC"), ZUTEXT("y")), 0);
}

// Short texts are looked at many units at a time, but only within a page.
TEST_F(WesternNormalizer, ComparesTextsWhereverTheyLie) {
    constexpr std::size_t pageUnits = 2048;
    std::vector<wchar16> memory(4 * pageUnits, wchar16{'#'});
    const auto address = reinterpret_cast<std::uintptr_t>(memory.data());
    const std::size_t toPage = (4096 - address % 4096) % 4096 / 2;
    wchar16* const page = memory.data() + toPage + pageUnits;
    const auto placed = [](wchar16* place, const wstring16& text) {
        text.copy(place, text.size());
        place[text.size()] = 0;
        return place;
    };
    for (const std::size_t length : {0u, 1u, 7u, 8u, 20u, 23u, 24u, 25u, 31u, 40u}) {
        const wstring16 text(length, wchar16{'x'});
        for (std::size_t before = 0; before < 45; ++before) {
            const wchar16* const a = placed(page - before, text);
            EXPECT_EQ(normalizer.Compare(a, text.c_str()), 0) << length << " " << before;
            EXPECT_EQ(normalizer.Compare(a, (text + ZUTEXT("y")).c_str()), -1) << length << " " << before;
            EXPECT_EQ(normalizer.Compare((text + ZUTEXT("\u00E9")).c_str(), a), 1) << length << " " << before;
            std::fill_n(page - before, length + 1, wchar16{'#'});
        }
    }
}

// A small letter and a capital are the other way round by unit, whatever the lengths.
TEST_F(WesternNormalizer, ComparesTextsOfAnyTwoLengths) {
    for (const std::size_t left : {1u, 10u, 23u, 24u, 200u, 480u}) {
        for (const std::size_t right : {1u, 10u, 23u, 24u, 200u, 600u}) {
            const wstring16 small = wstring16(left, wchar16{'a'});
            const wstring16 capital = wstring16(right, wchar16{'B'});
            EXPECT_EQ(normalizer.Compare(small.c_str(), capital.c_str()), -1) << left << " " << right;
            EXPECT_EQ(normalizer.Compare(capital.c_str(), small.c_str()), 1) << left << " " << right;
            EXPECT_EQ(normalizer.Compare(small.c_str(), wstring16(right, wchar16{'A'}).c_str()),
                      (left > right) - (left < right));
        }
    }
}

TEST_F(WesternNormalizer, TakesALetterAndItsMarkAsOne) {
    EXPECT_EQ(normalizer.Compare(ZUTEXT("re\u0301sume\u0301"), ZUTEXT("resume")), 0);
    EXPECT_EQ(danish.Compare(ZUTEXT("A\u030A"), ZUTEXT("\u00C5")), 0);
    EXPECT_EQ(danish.Compare(ZUTEXT("A\u030A"), ZUTEXT("B")), 1) << "the mark behind the first difference counts";
    EXPECT_EQ(danish.Compare(ZUTEXT("B"), ZUTEXT("A\u030A")), -1);
    EXPECT_EQ(danish.Compare(ZUTEXT("ZA\u030A"), ZUTEXT("zb")), 1);
}

TEST_F(WesternNormalizer, TakesACharacterThatTheCharsetLacksAsAnUnderline) {
    EXPECT_EQ(normalizer.Compare(ZUTEXT("\u03BB"), ZUTEXT("_")), 0);
    EXPECT_EQ(normalizer.Compare(ZUTEXT("a\u3042b"), ZUTEXT("A_B")), 0);
    EXPECT_EQ(Folded(normalizer, ZUTEXT("x\u03BBy")), ZUTEXT("X_Y"));
}

TEST_F(WesternNormalizer, FoldsInPlace) {
    EXPECT_EQ(Folded(normalizer, ZUTEXT("\u00C4\u00D6\u00FC")), ZUTEXT("AOU"));
    EXPECT_EQ(Folded(danish, ZUTEXT("\u00C6r\u00F8 by")), ZUTEXT("\u00C5R\u00C6 BY"));
    EXPECT_EQ(Folded(normalizer, ZUTEXT("")), ZUTEXT(""));
    EXPECT_EQ(Folded(normalizer, ZUTEXT("e\u0301a")), ZUTEXT("EA")) << "a letter and its mark become one";
}

TEST_F(WesternNormalizer, FoldsInPlaceWhateverTheCapacity) {
    for (const uint64 capacity : {uint64{0}, uint64{1}, uint64{3}, ~uint64{0}}) {
        wchar16 text[] = {'a', 0x00E9, 'z', 0, '#'};
        EXPECT_TRUE(normalizer.NormalizeInPlace(text, capacity));
        EXPECT_EQ(wstring16(text, 5), wstring16(ZUTEXT("AEZ\0#"), 5));
    }
    EXPECT_FALSE(normalizer.NormalizeInPlace(nullptr, 5));
}

TEST_F(WesternNormalizer, FoldsTextsOfAnyLength) {
    for (const std::size_t length : {1u, 255u, 256u, 257u, 300u, 5000u}) {
        wstring16 expected;
        for (std::size_t index = 0; index < length; ++index) expected += index % 2 == 0 ? ZUTEXT("E") : ZUTEXT("_");
        wstring16 text;
        for (std::size_t index = 0; index < length; ++index) {
            text += index % 2 == 0 ? ZUTEXT("\u00EA") : ZUTEXT("\u03BB");
        }
        EXPECT_EQ(Folded(normalizer, text), expected) << length;
        EXPECT_EQ(Folded(normalizer, wstring16(length, wchar16{'q'})), wstring16(length, wchar16{'Q'})) << length;
        EXPECT_EQ(normalizer.Compare(text.c_str(), expected.c_str()), 0) << length;
        EXPECT_EQ(normalizer.Compare((text + ZUTEXT("a")).c_str(), (expected + ZUTEXT("b")).c_str()), -1) << length;
    }
}

TEST_F(WesternNormalizer, NormalizesIntoABlockOfItsOwn) {
    const wstring16 source = ZUTEXT("\u00C5s, \u00C6r\u00F8");
    test::OwnedText folded;
    uint64 length = 77;
    ASSERT_TRUE(normalizer.Normalize(source.c_str(), folded.Place(), &length));
    EXPECT_EQ(wstring16(folded.Get()), ZUTEXT("AS, ARO"));
    EXPECT_EQ(length, source.size() + 1);
    EXPECT_EQ(source, ZUTEXT("\u00C5s, \u00C6r\u00F8"));
}

TEST_F(WesternNormalizer, NormalizesWithoutBeingAskedForTheLength) {
    test::OwnedText folded;
    ASSERT_TRUE(normalizer.Normalize(ZUTEXT("a\u00E9"), folded.Place(), nullptr));
    EXPECT_EQ(wstring16(folded.Get()), ZUTEXT("AE"));
}

TEST_F(WesternNormalizer, CountsTheUnitsThatWereAllocated) {
    test::OwnedText folded;
    uint64 length = 0;
    ASSERT_TRUE(normalizer.Normalize(ZUTEXT("e\u0301"), folded.Place(), &length));
    EXPECT_EQ(wstring16(folded.Get()), ZUTEXT("E"));
    EXPECT_EQ(length, 3u);
}

TEST_F(WesternNormalizer, NormalizesAnEmptyText) {
    test::OwnedText folded;
    uint64 length = 77;
    ASSERT_TRUE(normalizer.Normalize(ZUTEXT(""), folded.Place(), &length));
    EXPECT_EQ(wstring16(folded.Get()), ZUTEXT(""));
    EXPECT_EQ(length, 1u);
}

TEST_F(WesternNormalizer, NormalizesNothingFromOrToNull) {
    wchar16 own = 'x';
    wchar16* result = &own;
    uint64 length = 77;
    EXPECT_FALSE(normalizer.Normalize(ZUTEXT("a"), nullptr, &length));
    EXPECT_FALSE(normalizer.Normalize(nullptr, &result, &length));
    EXPECT_EQ(result, &own);
    EXPECT_EQ(length, 77u);
}

TEST(MultiByteNormalizer, LeavesPairsAlone) {
    const Manager manager(csWindowsLatin1);
    StringNormalizer& japanese = *manager->GetNormalizer(csWindowsJapanese, 65496, 0);
    // The second byte of the small tsu is that of the letter b.
    EXPECT_EQ(Folded(japanese, ZUTEXT("\u30C3b\u3042c")), ZUTEXT("\u30C3B\u3042C"));
    EXPECT_EQ(japanese.Compare(ZUTEXT("\u30C3b"), ZUTEXT("\u30C3B")), 0);
    EXPECT_NE(japanese.Compare(ZUTEXT("\u30C3"), ZUTEXT("\u30A4")), 0) << "83 62 and 83 43";
    EXPECT_EQ(japanese.Compare(ZUTEXT("\u3042"), ZUTEXT("z")), 1);
    EXPECT_EQ(japanese.Compare(ZUTEXT("abc"), ZUTEXT("ABD")), -1);
}

TEST(MultiByteNormalizer, FoldsSingleBytesOfTheUpperHalf) {
    const Manager manager(csWindowsLatin1);
    StringNormalizer& japanese = *manager->GetNormalizer(csWindowsJapanese, 44414, 0);
    EXPECT_EQ(Folded(japanese, ZUTEXT("\uFF80")), ZUTEXT("A")) << "byte C0";
    EXPECT_EQ(Folded(japanese, ZUTEXT("\uFF71x")), ZUTEXT("\uFF71X")) << "byte B1";
}

TEST(NormalizerWithoutACodePage, WorksInTheSystemCharset) {
    const Manager manager(csWindowsLatin1);
    StringNormalizer& mac = *manager->GetNormalizer(csMacRoman, 44414, 0);
    const SystemCharset latin(csWindowsLatin1);
    EXPECT_EQ(mac.Compare(ZUTEXT("r\u00E9sum\u00E9"), ZUTEXT("RESUME")), 0);
    EXPECT_EQ(Folded(mac, ZUTEXT("abc")), ZUTEXT("")) << "its bytes do not lead back";
}

TEST(DefaultNormalizer, IsOfTheSystemCharset) {
    struct Case {
        ZUCHARSET system;
        ZUCHARSET charset;
        uint16 code;
    };
    const uint32 before = platform::GetThreadLocale();
    ASSERT_TRUE(platform::SetThreadLocale(1033));
    for (const Case& each : {Case{csWindowsLatin1, csWindowsLatin1, 5607},
                             {csUTF8, csWindowsLatin1, 5607},
                             {csWindowsLatin2, csWindowsLatin2, 40623},
                             {csWindowsCyrillic, csWindowsCyrillic, 65496},
                             {csWindowsJapanese, csWindowsJapanese, 65496},
                             {csNeutral, csNeutral, 65496}}) {
        const Manager manager(each.system);
        StringNormalizer* const normalizer = manager->GetDefaultNormalizer();
        ASSERT_NE(normalizer, nullptr) << each.system;
        EXPECT_EQ(normalizer->GetCharset(), each.charset) << each.system;
        EXPECT_EQ(normalizer->GetConversionCode(), each.code) << each.system;
        EXPECT_TRUE(normalizer->IsActive());
        EXPECT_EQ(manager->GetDefaultNormalizer(), normalizer) << "made once";
    }
    platform::SetThreadLocale(before);
}

TEST(DefaultNormalizer, CanBeRequestedOnce) {
    const Manager manager(csWindowsLatin1);
    EXPECT_TRUE(manager->RequestDefaultNormalizer(1030));
    EXPECT_EQ(manager->GetDefaultNormalizer()->GetConversionCode(), 34070);
    EXPECT_FALSE(manager->RequestDefaultNormalizer(1030));
    EXPECT_FALSE(manager->RequestDefaultNormalizer(1053));
    EXPECT_EQ(manager->GetDefaultNormalizer()->GetConversionCode(), 34070) << "the first word stands";
}

TEST(DefaultNormalizer, CannotBeRequestedAnyMoreOnceItWasUsed) {
    const Manager manager(csWindowsLatin1);
    StringNormalizer* const first = manager->GetDefaultNormalizer();
    EXPECT_FALSE(manager->RequestDefaultNormalizer(1030));
    EXPECT_EQ(manager->GetDefaultNormalizer(), first);
}

TEST(DefaultNormalizer, FollowsTheThreadsLocaleWhenItIsMade) {
    const uint32 before = platform::GetThreadLocale();
    const Manager swedish(csWindowsLatin1);
    const Manager requested(csWindowsLatin1);
    ASSERT_TRUE(platform::SetThreadLocale(1053));
    EXPECT_EQ(swedish->GetDefaultNormalizer()->GetConversionCode(), 1298);
    EXPECT_TRUE(requested->RequestDefaultNormalizer(0));
    EXPECT_EQ(requested->GetDefaultNormalizer()->GetConversionCode(), 1298);
    ASSERT_TRUE(platform::SetThreadLocale(1030));
    EXPECT_EQ(swedish->GetDefaultNormalizer()->GetConversionCode(), 1298);
    platform::SetThreadLocale(before);
}

TEST(DefaultNormalizer, IsNullWhereNoTableFits) {
    const Manager manager(csUTF16);
    ClearErrors();
    EXPECT_EQ(manager->GetDefaultNormalizer(), nullptr);
    EXPECT_FALSE(manager->RequestDefaultNormalizer(1030));
    EXPECT_EQ(NumErrors(), 0);
}

TEST(DefaultNormalizer, IsApartFromTheOthers) {
    const Manager manager(csWindowsLatin1);
    ASSERT_TRUE(manager->RequestDefaultNormalizer(1030));
    StringNormalizer* const asked = manager->GetNormalizer(csWindowsLatin1, 34070, 0);
    EXPECT_NE(asked, manager->GetDefaultNormalizer());

    const Manager other(csWindowsLatin1);
    StringNormalizer* const first = other->GetNormalizer(csWindowsLatin1, 34070, 0);
    ASSERT_TRUE(other->RequestDefaultNormalizer(1030));
    EXPECT_NE(other->GetDefaultNormalizer(), first);
}

TEST(NormalizerService, OperationsStandInTheirPublishedOrder) {
    using test::SlotOf;
    EXPECT_EQ(SlotOf(&StringNormalizer::GetCharset), 2u);
    EXPECT_EQ(SlotOf(&StringNormalizer::GetConversionCode), 3u);
    EXPECT_EQ(SlotOf(&StringNormalizer::GetAsciiCode), 4u);
    EXPECT_EQ(SlotOf(&StringNormalizer::IsActive), 5u);
    EXPECT_EQ(SlotOf(&StringNormalizer::Normalize), 6u);
    EXPECT_EQ(SlotOf(&StringNormalizer::NormalizeInPlace), 7u);
    EXPECT_EQ(SlotOf(&StringNormalizer::Compare), 8u);
    EXPECT_EQ(SlotOf(&StringNormalizer::GetLCID), 9u);
    EXPECT_EQ(SlotOf(&StringNormalizer::IsNormalized), 10u);
    EXPECT_EQ(SlotOf(&StringNormalizerManager::GetDefaultNormalizer), 2u);
    EXPECT_EQ(SlotOf(&StringNormalizerManager::GetNormalizer), 3u);
    EXPECT_EQ(SlotOf(&StringNormalizerManager::RequestDefaultNormalizer), 4u);
    EXPECT_EQ(SlotOf(&StringNormalizerManager::ConversionCodeForCharset), 5u);
}

TEST(NormalizerService, LiesUnderItsKey) {
    EXPECT_NE(StringNormalizerManager::Instance(), nullptr);
    EXPECT_EQ(GetInstanceData()->GetSlot(13), StringNormalizerManager::Instance());
}

// Writes down what it is asked.
class AskedManager final : public StringNormalizerManager {
public:
    StringNormalizer* GetDefaultNormalizer() override {
        asked += "default ";
        return nullptr;
    }
    StringNormalizer* GetNormalizer(ZUCHARSET cs, uint16 code, uint32 lcid) override {
        asked += std::to_string(cs) + ',' + std::to_string(code) + ',' + std::to_string(lcid) + ' ';
        return nullptr;
    }
    bool RequestDefaultNormalizer(int32 lcid) override {
        asked += "request" + std::to_string(lcid) + ' ';
        return true;
    }
    uint16 ConversionCodeForCharset(ZUCHARSET cs, int32 lcid) override {
        asked += "code" + std::to_string(cs) + ',' + std::to_string(lcid) + ' ';
        return 4711;
    }
    std::string asked;
};

TEST(NormalizerService, IsWhatTheFunctionsForwardTo) {
    StringNormalizerManager* const own = StringNormalizerManager::Instance();
    AskedManager manager;
    EXPECT_TRUE(StringNormalizerManager::Instance(&manager));
    EXPECT_EQ(GetDefaultNormalizer(), nullptr);
    EXPECT_EQ(GetNormalizer(csWindowsLatin1, 3, 4), nullptr);
    EXPECT_TRUE(RequestDefaultNormalizer(-5));
    EXPECT_EQ(ConversionCodeForCharset(csUTF16, 6), 4711);
    StringNormalizerManager::Instance(own);
    EXPECT_EQ(manager.asked, "default 10,3,4 request-5 code58,6 ");
}

TEST(NormalizerService, IsPrivateToEachThread) {
    StringNormalizerManager* const own = StringNormalizerManager::Instance();
    std::thread([&] {
        EXPECT_NE(StringNormalizerManager::Instance(), own);
        EXPECT_NE(GetNormalizer(csWindowsLatin1, 1298, 0), nullptr);
        EXPECT_NE(GetDefaultNormalizer(), nullptr);
        InstanceData::Destroy(false, false);
    }).join();
}

TEST(NormalizerOfASymbolicPage, StaysWithinTheText) {
    const test::ThreadLocale former;
    const Manager manager(csWindowsLatin1);
    for (const uint32 locale : {0x0404u, 0x0411u, 0x0412u, 0x0804u}) {
        ASSERT_TRUE(platform::SetThreadLocale(locale));
        for (const ZUCHARSET charset : {csNeutral, csCodePage437}) {
            for (const int code : {65496, 44414, 40623, 55762, 32694, 21121, 34070, 41909, 1298, 56485, 54273}) {
                StringNormalizer& normalizer = *manager->GetNormalizer(charset, static_cast<uint16>(code), 0);
                for (const wchar16 unit : wstring16(ZUTEXT("\u4E00\u8868\u30BD\u3042\uAC00\u0391"))) {
                    wchar16 text[] = {unit, 0, '#', '#'};
                    EXPECT_TRUE(normalizer.NormalizeInPlace(text, 0));
                    EXPECT_EQ(text[1], 0) << locale << " " << code;
                    EXPECT_EQ(text[2], '#') << locale << " " << code;
                }
            }
        }
    }
}

}  // namespace
}  // namespace normalizers_test
