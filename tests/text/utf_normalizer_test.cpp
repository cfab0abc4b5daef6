#include <Utility/charsets.h>
#include <Utility/instance.h>
#include <Utility/platform/host.h>
#include <support/guarded_buffer.h>
#include <support/owned_text.h>
#include <support/random.h>
#include <support/system_charset.h>
#include <support/unicode_normalizers.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

namespace utf_normalizer_test {
namespace {

using namespace Torvo;
using test::OwnedText;

constexpr uint32 English = 0x0409;
constexpr uint32 Japanese = 0x0411;

// A key text as bytes, up to its terminator and with it.
std::string Bytes(const wchar16* text, uint64 units) {
    return {reinterpret_cast<const char*>(text), units * sizeof(wchar16)};
}

class UtfNormalizer : public test::UnicodeNormalizers {
protected:
    // The key text of a text, without its terminator.
    static wstring16 KeyText(StringNormalizer& normalizer, const wstring16& text) {
        OwnedText key;
        uint64 units = 0;
        EXPECT_TRUE(normalizer.Normalize(text.c_str(), key.Place(), &units));
        return {key.Get(), units - 1};
    }
};

TEST_F(UtfNormalizer, TellsWhatItIs) {
    for (const ZUCHARSET charset : {csUTF8, csUTF16}) {
        StringNormalizer* const normalizer = GetNormalizer(charset, 4711, English);
        ASSERT_NE(normalizer, nullptr);
        EXPECT_EQ(normalizer->GetCharset(), charset);
        EXPECT_EQ(normalizer->GetConversionCode(), 4711);
        EXPECT_EQ(normalizer->GetLCID(), English);
        EXPECT_FALSE(normalizer->IsActive());
        EXPECT_EQ(normalizer->GetAsciiCode(), GetDefaultNormalizer()->GetAsciiCode());
    }
}

TEST_F(UtfNormalizer, ComparesPlainTextsByTheirKeysWhereTheCollatorDiffers) {
    struct Case {
        uint32 locale;
        const wchar16* a;
        const wchar16* b;
    };
    for (const Case& each : {Case{0x041E, ZUTEXT("\u0E01 "), ZUTEXT("\u0E01 \u0E4C")},
                             {0x041E, ZUTEXT("\u0317 "), ZUTEXT("\u0317 \u0E4C")},
                             {0x0C0C, ZUTEXT("\u0300\u200D"), ZUTEXT("\u0300\u200D\u0301")},
                             {0x0C0C, ZUTEXT("\u033D\u034F"), ZUTEXT("\u033D\u034F\u0300")}}) {
        StringNormalizer& normalizer = Of(each.locale);
        const wstring16 a = KeyText(normalizer, each.a);
        const wstring16 b = KeyText(normalizer, each.b);
        const int32 byKeys = normalizer.Compare(a.c_str(), b.c_str());
        EXPECT_EQ(normalizer.Compare(each.a, each.b), byKeys) << each.locale;
        EXPECT_EQ(normalizer.Compare(each.b, each.a), -byKeys) << each.locale;
        EXPECT_EQ(normalizer.Compare(a.c_str(), each.b), byKeys) << each.locale;
    }
}

TEST_F(UtfNormalizer, HasNoAsciiCodeWithoutADefaultNormalizer) {
    StringNormalizer& normalizer = Of(English);
    StringNormalizerManager* const own = StringNormalizerManager::Instance();
    const test::SystemCharset none(csUTF16);
    const std::unique_ptr<StringNormalizerManager> manager(StringNormalizerManager::Create());
    StringNormalizerManager::Instance(manager.get());
    EXPECT_EQ(normalizer.GetAsciiCode(), 0);
    StringNormalizerManager::Instance(own);
}

TEST_F(UtfNormalizer, IsFoundByCharsetCodeAndLocale) {
    StringNormalizer* const first = GetNormalizer(csUTF16, 1, English);
    EXPECT_EQ(GetNormalizer(csUTF16, 1, English), first);
    EXPECT_NE(GetNormalizer(csUTF8, 1, English), first);
    EXPECT_NE(GetNormalizer(csUTF16, 0, English), first);
    EXPECT_NE(GetNormalizer(csUTF16, 2, English), first);
    EXPECT_NE(GetNormalizer(csUTF16, 1, 0x0807), first);
    EXPECT_TRUE(first->IsActive() == false) << "reuse makes no Unicode normalizer active";
}

TEST_F(UtfNormalizer, WorksByTheSystemsLocaleWhereNoneIsNamed) {
    StringNormalizer* const first = GetNormalizer(csUTF16, 1, 0);
    StringNormalizer* const second = GetNormalizer(csUTF16, 1, 0);
    EXPECT_NE(first, second) << "it is kept under the locale it works by, not under 0";
    EXPECT_NE(first->GetLCID(), 0u);
    EXPECT_EQ(first->GetLCID(), second->GetLCID());
    wchar16 name[85];
    EXPECT_TRUE(LCIDToName(first->GetLCID(), name, 85));
    EXPECT_EQ(GetNormalizer(csUTF16, 1, 0x0FFF)->GetLCID(), first->GetLCID()) << "no locale has this identifier";
    EXPECT_EQ(first->Compare(ZUTEXT("a"), ZUTEXT("b")), -1);
}

TEST_F(UtfNormalizer, WritesAKeyText) {
    for (const wchar16* text : {ZUTEXT("a"), ZUTEXT("ab"), ZUTEXT("abc"), ZUTEXT("r\u00E9sum\u00E9"), ZUTEXT(" ")}) {
        OwnedText key;
        uint64 units = 0;
        ASSERT_TRUE(Of(English).Normalize(text, key.Place(), &units));
        const std::string bytes = Bytes(key.Get(), units);
        EXPECT_EQ(bytes.substr(0, 4), "\xEF\xBB\xBF\xBA");
        const std::size_t keySize = std::strlen(bytes.c_str() + 4) + 1;
        // The key with its zero byte, filled up to whole units, and a zero unit.
        EXPECT_EQ(bytes.size(), (4 + keySize + 1) / 2 * 2 + 2);
        EXPECT_EQ(bytes.substr(4 + keySize), std::string(bytes.size() - 4 - keySize, '\0'));
        EXPECT_TRUE(Of(English).IsNormalized(key.Get()));
    }
}

TEST_F(UtfNormalizer, KnowsAKeyTextByItsFirstBytes) {
    StringNormalizer& normalizer = Of(English);
    EXPECT_FALSE(normalizer.IsNormalized(nullptr));
    EXPECT_FALSE(normalizer.IsNormalized(ZUTEXT("")));
    EXPECT_FALSE(normalizer.IsNormalized(ZUTEXT("plain")));
    const wchar16 half[] = {0xBBEF, 0};
    EXPECT_FALSE(normalizer.IsNormalized(half));
    const wchar16 swapped[] = {0xBABF, 0xBBEF, 0};
    EXPECT_FALSE(normalizer.IsNormalized(swapped));
    const wchar16 markAlone[] = {0xBBEF, 0xBABF, 0};
    EXPECT_TRUE(normalizer.IsNormalized(markAlone));
    EXPECT_TRUE(normalizer.IsNormalized(KeyText(normalizer, ZUTEXT("a")).c_str()));
}

TEST_F(UtfNormalizer, NormalizesWithoutBeingAskedForTheLength) {
    OwnedText key;
    ASSERT_TRUE(Of(English).Normalize(ZUTEXT("a"), key.Place(), nullptr));
    EXPECT_TRUE(Of(English).IsNormalized(key.Get()));
}

TEST_F(UtfNormalizer, NormalizesNothing) {
    wchar16 own = 'x';
    wchar16* result = &own;
    uint64 units = 77;
    EXPECT_FALSE(Of(English).Normalize(ZUTEXT(""), &result, &units));
    EXPECT_FALSE(Of(English).Normalize(nullptr, &result, &units));
    EXPECT_FALSE(Of(English).Normalize(ZUTEXT("a"), nullptr, &units));
    EXPECT_FALSE(Of(Japanese).Normalize(ZUTEXT(""), &result, &units));
    EXPECT_EQ(result, &own);
    EXPECT_EQ(units, 77u);
}

TEST_F(UtfNormalizer, CopiesAKeyText) {
    const wstring16 key = KeyText(Of(English), ZUTEXT("place"));
    OwnedText copy;
    uint64 units = 77;
    ASSERT_TRUE(Of(English).Normalize(key.c_str(), copy.Place(), &units));
    EXPECT_EQ(wstring16(copy.Get()), wstring16(key.c_str()));
    EXPECT_EQ(units, 77u) << "left alone";
}

TEST_F(UtfNormalizer, CopiesAKeyTextUpToItsFirstZeroUnit) {
    const wchar16 cut[] = {0xBBEF, 0xBABF, 0x2A2A, 0, 0x2B2B, 0};
    OwnedText copy;
    ASSERT_TRUE(Of(English).Normalize(cut, copy.Place(), nullptr));
    EXPECT_EQ(wstring16(copy.Get()), wstring16(cut));
    EXPECT_EQ(wstring16(copy.Get()).size(), 3u);
}

TEST_F(UtfNormalizer, WritesTheKeyInPlace) {
    const wstring16 key = KeyText(Of(English), ZUTEXT("abc"));
    test::GuardedBuffer buffer(40);
    std::copy_n(ZUTEXT("abc"), 4, buffer.Start());
    EXPECT_TRUE(Of(English).NormalizeInPlace(buffer.Start(), 40));
    EXPECT_EQ(buffer.Text(), wstring16(key.c_str()));
    EXPECT_TRUE(buffer.IsCleared());
}

TEST_F(UtfNormalizer, CutsAKeyThatDoesNotFit) {
    const wstring16 text = ZUTEXT("a rather long name");
    const std::string whole = Bytes(KeyText(Of(English), text).data(), KeyText(Of(English), text).size());
    for (uint64 room = 3; room < 60; ++room) {
        test::GuardedBuffer buffer(std::max<uint64>(room, text.size() + 1));
        std::fill_n(buffer.Start(), buffer.Usable(), wchar16{'#'});
        text.copy(buffer.Start(), text.size());
        buffer.Start()[text.size()] = 0;
        ASSERT_TRUE(Of(English).NormalizeInPlace(buffer.Start(), room));
        EXPECT_TRUE(Of(English).IsNormalized(buffer.Start()));
        std::string expected = whole.substr(0, std::min<std::size_t>(whole.size(), 2 * room - 2));
        expected.resize(2 * room, '\0');
        EXPECT_EQ(Bytes(buffer.Start(), room), expected) << room;
    }
}

TEST_F(UtfNormalizer, TakesTheLengthOfTheTextForItsRoom) {
    for (const wstring16& text : {wstring16(ZUTEXT("abc")), wstring16(ZUTEXT("a longer name, a longer name"))}) {
        test::GuardedBuffer buffer(text.size() + 1);
        text.copy(buffer.Start(), text.size());
        buffer.Start()[text.size()] = 0;
        const wstring16 whole = KeyText(Of(English), text);
        ASSERT_TRUE(Of(English).NormalizeInPlace(buffer.Start(), 0));
        EXPECT_EQ(buffer.Text(), wstring16(whole.c_str()).substr(0, text.size() - 1));
        EXPECT_EQ(buffer.Start()[text.size() - 1], 0);
    }
}

TEST_F(UtfNormalizer, RefusesRoomThatCannotHoldTheMark) {
    for (const uint64 room : {1u, 2u}) {
        wchar16 text[] = {'a', 'b', 'c', 'd', 0};
        EXPECT_FALSE(Of(English).NormalizeInPlace(text, room));
        EXPECT_EQ(wstring16(text), ZUTEXT("abcd"));
    }
    for (const wchar16* source : {ZUTEXT("a")}) {
        wchar16 text[3];
        std::copy_n(source, std::char_traits<wchar16>::length(source) + 1, text);
        EXPECT_FALSE(Of(English).NormalizeInPlace(text, 0));
        EXPECT_EQ(wstring16(text), source);
    }
}

TEST_F(UtfNormalizer, TwoUnitsHoldTheMarkAlone) {
    wchar16 text[] = {'a', 'b', 0, '#'};
    EXPECT_TRUE(Of(English).NormalizeInPlace(text, 0));
    EXPECT_EQ(wstring16(text, 4), (wstring16{0xBBEF, 0xBABF, 0, '#'}));
}

TEST_F(UtfNormalizer, CanBeMadeByACaller) {
    UtfStringNormalizerImpl own(csUTF16, English, 1);
    EXPECT_EQ(own.GetLCID(), English);
    EXPECT_EQ(own.Compare(ZUTEXT("a"), ZUTEXT("b")), -1);
}

TEST_F(UtfNormalizer, LeavesAKeyTextInPlace) {
    wstring16 key = KeyText(Of(English), ZUTEXT("abc"));
    const wstring16 before = key;
    EXPECT_TRUE(Of(English).NormalizeInPlace(key.data(), 3));
    EXPECT_EQ(key, before);
    EXPECT_FALSE(Of(English).NormalizeInPlace(nullptr, 3));
    wchar16 empty[] = {0, '#', '#', '#', '#'};
    EXPECT_FALSE(Of(English).NormalizeInPlace(empty, 5));
    EXPECT_EQ(wstring16(empty, 5), wstring16(ZUTEXT("\0####"), 5));
}

TEST_F(UtfNormalizer, ComparesByLettersWithTheCodeZero) {
    StringNormalizer& normalizer = Of(English, 0);
    EXPECT_EQ(normalizer.Compare(ZUTEXT("a"), ZUTEXT("\u00C1")), 0);
    EXPECT_EQ(normalizer.Compare(ZUTEXT("a"), ZUTEXT("A")), 0);
    EXPECT_EQ(normalizer.Compare(ZUTEXT("a"), ZUTEXT("b")), -1);
}

TEST_F(UtfNormalizer, ComparesByAccentsWithAnyOtherCode) {
    for (const int code : {1, 44414, 65535}) {
        StringNormalizer& normalizer = Of(English, code);
        EXPECT_EQ(normalizer.Compare(ZUTEXT("a"), ZUTEXT("\u00C1")), -1);
        EXPECT_EQ(normalizer.Compare(ZUTEXT("\u00C1"), ZUTEXT("a")), 1);
        EXPECT_EQ(normalizer.Compare(ZUTEXT("a"), ZUTEXT("A")), 0);
    }
}

TEST_F(UtfNormalizer, TakesComposedAndDecomposedTextAsTheSame) {
    for (const int code : {0, 1}) {
        EXPECT_EQ(Of(English, code).Compare(ZUTEXT("r\u00E9sum\u00E9"), ZUTEXT("re\u0301sume\u0301")), 0);
        EXPECT_EQ(KeyText(Of(English, code), ZUTEXT("\u01D8")), KeyText(Of(English, code), ZUTEXT("u\u0308\u0301")));
    }
}

TEST_F(UtfNormalizer, ComparesJapaneseInTheFinestWayAndInCapitals) {
    for (const int code : {0, 1}) {
        StringNormalizer& normalizer = Of(Japanese, code);
        EXPECT_EQ(normalizer.Compare(ZUTEXT("a"), ZUTEXT("A")), 0) << "in capitals";
        EXPECT_EQ(KeyText(normalizer, ZUTEXT("stra\u00DFe")), KeyText(normalizer, ZUTEXT("STRASSE")));
        EXPECT_NE(normalizer.Compare(ZUTEXT("a"), ZUTEXT("\u00C1")), 0) << "accents";
        EXPECT_NE(normalizer.Compare(ZUTEXT("\u304B"), ZUTEXT("\u30AB")), 0) << "hiragana and katakana";
    }
    EXPECT_EQ(Of(English, 1).Compare(ZUTEXT("\u304B"), ZUTEXT("\u30AB")), 0);
}

// Chinese is ordered by sound in China and by strokes in Taiwan: the territory behind the hyphen reaches ICU.
TEST_F(UtfNormalizer, WorksByTheWholeNameOfALocale) {
    EXPECT_EQ(Of(0x0804).Compare(ZUTEXT("\u4E00"), ZUTEXT("\u516B")), 1) << "yi and ba";
    EXPECT_EQ(Of(0x0404).Compare(ZUTEXT("\u4E00"), ZUTEXT("\u516B")), -1) << "one stroke and two";
}

TEST_F(UtfNormalizer, ComparesNullAndNothing) {
    StringNormalizer& normalizer = Of(English);
    EXPECT_EQ(normalizer.Compare(nullptr, ZUTEXT("a")), 0);
    EXPECT_EQ(normalizer.Compare(ZUTEXT("a"), nullptr), 0);
    EXPECT_EQ(normalizer.Compare(nullptr, nullptr), 0);
    EXPECT_EQ(normalizer.Compare(ZUTEXT(""), ZUTEXT("")), 0);
    EXPECT_EQ(normalizer.Compare(ZUTEXT(""), ZUTEXT("a")), -1);
    EXPECT_EQ(normalizer.Compare(ZUTEXT("a"), ZUTEXT("")), 1);
}

TEST_F(UtfNormalizer, ComparesKeyTextsThatAreCut) {
    StringNormalizer& normalizer = Of(English);
    const wstring16 key = KeyText(normalizer, ZUTEXT("Hamburg"));
    for (std::size_t units = 2; units + 1 < key.size(); ++units) {
        const wstring16 cut = key.substr(0, units);
        EXPECT_EQ(normalizer.Compare(cut.c_str(), key.c_str()), -1) << units;
        EXPECT_EQ(normalizer.Compare(key.c_str(), cut.c_str()), 1) << units;
        EXPECT_EQ(normalizer.Compare(cut.c_str(), cut.c_str()), 0) << units;
        EXPECT_EQ(normalizer.Compare(cut.c_str(), ZUTEXT("Hamburg")), -1) << units;
    }
}

TEST_F(UtfNormalizer, ComparesTheBytesOfKeysAsUnsigned) {
    const wchar16 low[] = {0xBBEF, 0xBABF, 0x7F7F, 0};
    const wchar16 high[] = {0xBBEF, 0xBABF, 0x7F80, 0};
    EXPECT_EQ(Of(English).Compare(low, high), -1);
    // A zero byte ends the key, inside a unit too.
    const wchar16 ended[] = {0xBBEF, 0xBABF, 0x0041, 0x4242, 0};
    const wchar16 short1[] = {0xBBEF, 0xBABF, 0x0041, 0};
    EXPECT_EQ(Of(English).Compare(ended, short1), 0);
    const wchar16 first[] = {0xBBEF, 0xBABF, 0x4100, 0};
    const wchar16 markAlone[] = {0xBBEF, 0xBABF, 0};
    EXPECT_EQ(Of(English).Compare(first, markAlone), 0);
}

// Names, marks, scripts that a collator treats in ways of their own, and unpaired surrogates.
wstring16 RandomName(test::Random& random) {
    static const std::vector<wstring16> parts = {
        ZUTEXT("a"),      ZUTEXT("A"),      ZUTEXT("b"),      ZUTEXT("aa"),     ZUTEXT("ch"),     ZUTEXT("\u00E5"),
        ZUTEXT("\u00C4"), ZUTEXT("o"),      ZUTEXT("\u0308"), ZUTEXT("\u0301"), ZUTEXT("\u0323"), ZUTEXT(" "),
        ZUTEXT("-"),      ZUTEXT("7"),      ZUTEXT("ll"),     ZUTEXT("\u00DF"), ZUTEXT("\u0E40"), ZUTEXT("\u0E01"),
        ZUTEXT("\u304B"), ZUTEXT("\u30AB"), ZUTEXT("\uFF76"), ZUTEXT("\u30FC"), ZUTEXT("\uAC00"), ZUTEXT("\u1100"),
        ZUTEXT("\u1161"), ZUTEXT("\u4E00"), ZUTEXT("\u0001"), ZUTEXT("\u0416"), ZUTEXT("\u0436"), {wchar16{0xD83D}},
        {wchar16{0xDE00}}};
    wstring16 name;
    for (int64 left = random.Between(0, 6); left > 0; --left) {
        name += parts[static_cast<std::size_t>(random.Between(0, static_cast<int64>(parts.size()) - 1))];
    }
    return name;
}

TEST_F(UtfNormalizer, ComparesPlainTextsAsItComparesTheirKeys) {
    test::Random random;
    SCOPED_TRACE(random.About());
    for (const uint32 locale : {0x0409u, 0x0406u, 0x041Du, 0x040Bu, 0x0407u, 0x040Cu, 0x0C0Au, 0x0405u, 0x0411u,
                                0x0412u, 0x041Eu, 0x0804u, 0x0419u, 0x0C0Cu}) {
        for (const int code : {0, 1}) {
            StringNormalizer& normalizer = Of(locale, code);
            for (int round = 0; round < test::kRandomOperations / 1000; ++round) {
                const wstring16 a = RandomName(random) + ZUTEXT("x");
                const wstring16 b = random.OneIn(4) ? a + RandomName(random) : RandomName(random) + ZUTEXT("x");
                const int32 plain = normalizer.Compare(a.c_str(), b.c_str());
                const wstring16 keyA = KeyText(normalizer, a);
                const wstring16 keyB = KeyText(normalizer, b);
                ASSERT_EQ(normalizer.Compare(keyA.c_str(), keyB.c_str()), plain) << locale;
                ASSERT_EQ(normalizer.Compare(keyA.c_str(), b.c_str()), plain) << locale;
                ASSERT_EQ(normalizer.Compare(a.c_str(), keyB.c_str()), plain) << locale;
                ASSERT_EQ(normalizer.Compare(b.c_str(), a.c_str()), -plain) << locale;
            }
        }
    }
}

TEST_F(UtfNormalizer, TakesTextsOfAnyLength) {
    StringNormalizer& normalizer = Of(English);
    StringNormalizer& japanese = Of(Japanese);
    for (const std::size_t length : {100u, 511u, 512u, 513u, 2000u, 20000u}) {
        for (const wchar16 unit : {wchar16{'a'}, wchar16{0x3042}}) {
            const wstring16 text(length, unit);
            EXPECT_TRUE(normalizer.IsNormalized(KeyText(normalizer, text).c_str()));
            EXPECT_EQ(normalizer.Compare(KeyText(normalizer, text).c_str(), text.c_str()), 0);
            EXPECT_EQ(normalizer.Compare(text.c_str(), (text + ZUTEXT("b")).c_str()), -1);
            EXPECT_EQ(japanese.Compare(KeyText(japanese, text + unit).c_str(), text.c_str()), 1);
        }
    }
}

TEST(UtfNormalizerWithoutIcu, IsRefusedWithoutHarm) {
    if (test::HasCollation()) GTEST_SKIP() << "the system has the ICU libraries";
    for (int attempt = 0; attempt < 2; ++attempt) {
        for (const ZUCHARSET charset : {csUTF8, csUTF16}) {
            try {
                GetNormalizer(charset, 1, English);
                FAIL() << "made";
            } catch (const UtfStringNormalizerImpl::eCreateError error) {
                EXPECT_EQ(error, 1);
            }
        }
    }
    EXPECT_NE(GetNormalizer(csWindowsLatin1, 44414, 0), nullptr);
}

}  // namespace
}  // namespace utf_normalizer_test
