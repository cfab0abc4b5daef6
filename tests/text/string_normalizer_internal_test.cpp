// Table normalizers beside their plain form, and short memory.
#include <Utility/errors.h>
#include <Utility/text/normalizer_manager.h>
#include <Utility/text/string_normalizer.h>
#include <gtest/gtest.h>
#include <reference/plain_normalizer.h>
#include <support/failing_heap.h>
#include <support/owned_text.h>
#include <support/random.h>
#include <support/system_charset.h>
#include <support/vtable_slot.h>

#include <algorithm>
#include <memory>
#include <vector>

namespace string_normalizer_internal_test {
namespace {

using namespace Torvo;
using test::FailingHeap;
using test::SystemCharset;

const NormalizationTable& Table(uint16 code) {
    return *FindNormalizationTable(code);
}

// Texts of the characters that a charset has, of such as it lacks, and of marks; in pairs that share their beginning.
class RandomNames {
public:
    explicit RandomNames(test::Random& random) : random_(random) {}

    // What the next texts are drawn from: a script, and now and then anything.
    void Choose(wchar16 first, wchar16 last) {
        first_ = first;
        last_ = last;
    }
    wstring16 Text(std::size_t longest) {
        wstring16 text;
        for (int64 left = random_.Between(0, static_cast<int64>(longest)); left > 0; --left) text += Unit();
        return text;
    }
    // The text in another case, or with something changed.
    wstring16 Near(wstring16 text) {
        for (wchar16& unit : text) {
            if (random_.OneIn(3) && unit < 0x80) unit = static_cast<wchar16>(unit ^ 0x20);
        }
        if (!text.empty() && random_.OneIn(2)) text[Place(text.size())] = Unit();
        if (random_.OneIn(4))
            text.insert(Place(text.size() + 1), 1, static_cast<wchar16>(random_.Between(0x300, 0x30A)));
        std::replace(text.begin(), text.end(), wchar16{0}, wchar16{' '});
        return text;
    }

private:
    std::size_t Place(std::size_t limit) {
        return static_cast<std::size_t>(random_.Between(0, static_cast<int64>(limit) - 1));
    }
    wchar16 Unit() {
        if (random_.OneIn(40)) return static_cast<wchar16>(random_.Between(1, 0xFFFF));
        if (random_.OneIn(20)) return static_cast<wchar16>(random_.Between(0x300, 0x345));
        if (random_.OneIn(2)) return static_cast<wchar16>(random_.Between('A', 'z'));
        return static_cast<wchar16>(random_.Between(first_, last_));
    }

    test::Random& random_;
    wchar16 first_ = 1;
    wchar16 last_ = 0x4FF;
};

// One round: two texts are compared, and one is folded in place.
void CompareWithThePlainForm(StringNormalizerImpl& normalizer, const NormalizationTable& table, test::Random& random,
                             RandomNames& names) {
    constexpr std::pair<wchar16, wchar16> scripts[] = {
        {1, 0xFF}, {0x80, 0x17F}, {0x370, 0x3FF}, {0x400, 0x4FF}, {0x5D0, 0x5EA}, {0x3040, 0x30FF}, {0xFF61, 0xFF9F}};
    const auto [first, last] = scripts[random.Between(0, std::size(scripts) - 1)];
    names.Choose(first, last);
    const ZUCHARSET cs = normalizer.GetCharset();
    const wstring16 a = names.Text(random.OneIn(30) ? 600 : random.OneIn(3) ? 30 : 12);
    const wstring16 b = random.OneIn(4) ? names.Text(12) : names.Near(a);
    ASSERT_EQ(normalizer.Compare(a.c_str(), b.c_str()), test::PlainCompare(a, b, cs, table)) << cs << " " << table.code;
    wstring16 folded = a;
    ASSERT_TRUE(normalizer.NormalizeInPlace(folded.data(), 0));
    ASSERT_EQ(wstring16(folded.c_str()), test::PlainNormalize(a, cs, table)) << cs << " " << table.code;
}

// Every set that has a code page, the symbolic ones too, with every table.
TEST(StringNormalizerModel, AgreesWithThePlainForm) {
    const SystemCharset latin(csWindowsLatin1);
    test::Random random;
    SCOPED_TRACE(random.About());
    RandomNames names(random);
    const int rounds = test::kRandomOperations / 50'000;
    for (int charset = 0; charset <= 56; ++charset) {
        const auto cs = static_cast<ZUCHARSET>(charset);
        if (GetWinCodePage(cs) < 0) continue;
        for (const NormalizationTable& table : normalizationTables) {
            StringNormalizerImpl normalizer(cs, &table);
            for (int round = 0; round < rounds; ++round) {
                CompareWithThePlainForm(normalizer, table, random, names);
                if (HasFatalFailure()) return;
            }
        }
    }
}

// The others take the system charset's page all alike. (Asking for a page that there is not is slow on some systems.)
TEST(StringNormalizerModel, AgreesWithThePlainFormInSetsWithoutAPage) {
    const SystemCharset latin(csWindowsLatin1);
    test::Random random;
    SCOPED_TRACE(random.About());
    RandomNames names(random);
    for (int charset = 0; charset <= 56; ++charset) {
        const auto cs = static_cast<ZUCHARSET>(charset);
        if (GetWinCodePage(cs) >= 0) continue;
        const NormalizationTable& table = normalizationTables[charset % std::size(normalizationTables)];
        StringNormalizerImpl normalizer(cs, &table);
        CompareWithThePlainForm(normalizer, table, random, names);
        if (HasFatalFailure()) return;
    }
}

// All units alone, in every set with a page of its own number.
TEST(StringNormalizerModel, FoldsEveryUnitAsThePlainFormDoes) {
    for (int charset = 1; charset <= 56; ++charset) {
        const auto cs = static_cast<ZUCHARSET>(charset);
        if (GetWinCodePage(cs) <= 1) continue;
        StringNormalizerImpl normalizer(cs, &Table(44414));
        for (uint32 unit = 1; unit < 0x600; ++unit) {
            wchar16 text[] = {static_cast<wchar16>(unit), 0};
            const wstring16 expected = test::PlainNormalize(text, cs, Table(44414));
            normalizer.NormalizeInPlace(text, 0);
            ASSERT_EQ(wstring16(text), expected) << charset << " " << unit;
        }
    }
}

TEST(StringNormalizerImplTest, NeedsATable) {
    try {
        const StringNormalizerImpl normalizer(csWindowsLatin1, nullptr);
        FAIL() << "made";
    } catch (const StringNormalizerImpl::eCreateError error) {
        EXPECT_EQ(error, 1);
    }
}

TEST(StringNormalizerImplTest, ReportsTheAliasForOneCharset) {
    EXPECT_EQ(StringNormalizerImpl(csWindowsLatin1, &Table(44414)).GetConversionCode(), 5607);
    EXPECT_EQ(StringNormalizerImpl(csWindowsLatin1, &Table(65496)).GetConversionCode(), 65496);
    EXPECT_EQ(StringNormalizerImpl(csISO8859_1, &Table(44414)).GetConversionCode(), 44414);
}

TEST(StringNormalizerImplTest, SetActiveStandsBehindTheInterface) {
    EXPECT_EQ(test::SlotOf(&StringNormalizerImpl::SetActive), 11u);
    StringNormalizerImpl normalizer(csWindowsLatin1, &Table(44414));
    EXPECT_TRUE(normalizer.IsActive());
    normalizer.SetActive(false);
    EXPECT_FALSE(normalizer.IsActive());
    normalizer.SetActive(true);
    EXPECT_TRUE(normalizer.IsActive());
}

TEST(NormalizerManagerImpl, MakesAReusedNormalizerActiveAgain) {
    StringNormalizerManagerImpl manager;
    auto* const normalizer = static_cast<StringNormalizerImpl*>(manager.GetNormalizer(csWindowsLatin1, 44414, 0));
    normalizer->SetActive(false);
    EXPECT_EQ(manager.GetNormalizer(csWindowsLatin1, 5607, 0), normalizer);
    EXPECT_TRUE(normalizer->IsActive());
}

TEST(NormalizerMemory, UpTo512UnitsAreComparedWithoutAllocating) {
    StringNormalizerImpl normalizer(csWindowsLatin1, &Table(44414));
    // The kana leads past the short cut.
    for (const wchar16* const unit : {ZUTEXT("a"), ZUTEXT("\u3042")}) {
        for (const auto& [left, right] : {std::pair{256, 256}, {0, 512}, {512, 0}, {500, 12}}) {
            const wstring16 a(static_cast<std::size_t>(left), *unit);
            const wstring16 b(static_cast<std::size_t>(right), *unit);
            const FailingHeap heap(1);
            EXPECT_EQ(normalizer.Compare(a.c_str(), b.c_str()), (left > right) - (left < right));
            EXPECT_FALSE(heap.Refused()) << left << " " << right;
        }
    }
}

TEST(NormalizerMemory, LongerTextsAreComparedByUnitWithoutMemory) {
    StringNormalizerImpl normalizer(csWindowsLatin1, &Table(44414));
    const int64 blocks = test::LiveBlocks();
    for (const std::size_t length : {257u, 300u, 5000u}) {
        const wstring16 small(length, wchar16{'a'});
        const wstring16 capital(length, wchar16{'B'});
        EXPECT_EQ(normalizer.Compare(small.c_str(), capital.c_str()), -1);
        EXPECT_EQ(normalizer.Compare(small.c_str(), wstring16(length, wchar16{'A'}).c_str()), 0);
        const FailingHeap heap(1);
        EXPECT_EQ(normalizer.Compare(small.c_str(), capital.c_str()), 1);
        EXPECT_TRUE(heap.Refused()) << length;
        EXPECT_EQ(normalizer.Compare(capital.c_str(), small.c_str()), -1);
        EXPECT_EQ(normalizer.Compare(small.c_str(), small.c_str()), 0);
    }
    EXPECT_EQ(test::LiveBlocks(), blocks);
}

TEST(NormalizerMemory, UpTo256UnitsAreFoldedInPlaceWithoutAllocating) {
    StringNormalizerImpl normalizer(csWindowsLatin1, &Table(44414));
    for (const wchar16* const unit : {ZUTEXT("a"), ZUTEXT("\u3042")}) {
        wstring16 text(256, *unit);
        const wstring16 expected(256, *unit == 'a' ? wchar16{'A'} : wchar16{'_'});
        const FailingHeap heap(1);
        EXPECT_TRUE(normalizer.NormalizeInPlace(text.data(), 0));
        EXPECT_FALSE(heap.Refused());
        EXPECT_EQ(text, expected);
    }
}

TEST(NormalizerMemory, ALongerTextStaysAsItIsWithoutMemory) {
    StringNormalizerImpl normalizer(csWindowsLatin1, &Table(44414));
    const wstring16 before(257, wchar16{0x3042});
    wstring16 text = before;
    {
        const FailingHeap heap(1);
        EXPECT_FALSE(normalizer.NormalizeInPlace(text.data(), 0));
        EXPECT_TRUE(heap.Refused());
    }
    EXPECT_EQ(text, before);
}

TEST(NormalizerMemory, NormalizeGivesNullOrAll) {
    StringNormalizerImpl normalizer(csWindowsLatin1, &Table(44414));
    const wstring16 text(300, wchar16{0x3042});
    const int64 blocks = test::LiveBlocks();
    const uint64 requests = test::RefuseEachRequest([&](uint64 nth, FailingHeap::Mode mode) {
        test::OwnedText folded;
        uint64 length = 77;
        const FailingHeap heap(nth, mode);
        const bool done = normalizer.Normalize(text.c_str(), folded.Place(), &length);
        EXPECT_EQ(done, !heap.Refused());
        EXPECT_EQ(folded.Get() != nullptr, done);
        EXPECT_EQ(length, done ? 301u : 77u);
        return heap.Refused();
    });
    EXPECT_EQ(requests, 2u);
    EXPECT_EQ(test::LiveBlocks(), blocks);
}

TEST(NormalizerMemory, TheManagerGivesNullWithoutAnError) {
    {
        const FailingHeap heap(1);
        EXPECT_EQ(StringNormalizerManager::Create(), nullptr);
        EXPECT_TRUE(heap.Refused());
    }
    ClearErrors();
    const int64 blocks = test::LiveBlocks();
    const uint64 requests = test::RefuseEachRequest([&](uint64 nth, FailingHeap::Mode mode) {
        const SystemCharset latin(csWindowsLatin1);
        const std::unique_ptr<StringNormalizerManager> manager(StringNormalizerManager::Create());
        const FailingHeap heap(nth, mode);
        const StringNormalizer* const normalizer = manager->GetNormalizer(csWindowsCyrillic, 55762, 0);
        EXPECT_EQ(normalizer != nullptr, !heap.Refused());
        return heap.Refused();
    });
    EXPECT_EQ(requests, 2u);
    EXPECT_EQ(NumErrors(), 0);
    EXPECT_EQ(test::LiveBlocks(), blocks);
}

TEST(NormalizerMemory, TheDefaultStaysToBeMade) {
    const SystemCharset latin(csWindowsLatin1);
    const std::unique_ptr<StringNormalizerManager> manager(StringNormalizerManager::Create());
    {
        const FailingHeap heap(1);
        EXPECT_EQ(manager->GetDefaultNormalizer(), nullptr);
        EXPECT_FALSE(manager->RequestDefaultNormalizer(1030));
    }
    EXPECT_TRUE(manager->RequestDefaultNormalizer(1030));
}

}  // namespace
}  // namespace string_normalizer_internal_test
