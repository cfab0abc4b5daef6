// Unicode normalizers where memory is short.
#include <Utility/text/normalizer_manager.h>
#include <gtest/gtest.h>
#include <support/failing_heap.h>
#include <support/owned_text.h>
#include <support/unicode_normalizers.h>

#include <memory>

namespace utf_normalizer_internal_test {
namespace {

using namespace Torvo;
using test::FailingHeap;

class UtfNormalizerMemory : public test::UnicodeNormalizers {
protected:
    // Longer than what the work areas hold from the start, and not composed.
    static wstring16 LongText() {
        wstring16 text;
        while (text.size() < 3000) text += ZUTEXT("e\u0301\u3042x");
        return text;
    }
};

TEST_F(UtfNormalizerMemory, AManagerLosesNothing) {
    const int64 blocks = test::LiveBlocks();
    const uint64 requests = test::RefuseEachRequest([&](uint64 nth, FailingHeap::Mode mode) {
        const std::unique_ptr<StringNormalizerManager> manager(StringNormalizerManager::Create());
        const StringNormalizer* made = nullptr;
        bool refused = false;
        try {
            const FailingHeap heap(nth, mode);
            try {
                made = manager->GetNormalizer(csUTF16, 1, 0x0409);
            } catch (const UtfStringNormalizerImpl::eCreateError) {
                EXPECT_TRUE(heap.Refused());
            }
            refused = heap.Refused();
        } catch (...) {
            ADD_FAILURE() << "another exception";
        }
        EXPECT_EQ(made != nullptr, !refused);
        return refused;
    });
    EXPECT_GE(requests, 3u) << "the object, its parts, its place in the array";
    EXPECT_EQ(test::LiveBlocks(), blocks);
}

TEST_F(UtfNormalizerMemory, NormalizeGivesAKeyOrNothing) {
    const wstring16 text = LongText();
    for (const uint32 lcid : {0x0409u, 0x0411u}) {
        const uint64 requests = test::RefuseEachRequest([&](uint64 nth, FailingHeap::Mode mode) {
            UtfStringNormalizerImpl normalizer(csUTF16, lcid, 1);
            test::OwnedText key;
            uint64 units = 77;
            const FailingHeap heap(nth, mode);
            const bool done = normalizer.Normalize(text.c_str(), key.Place(), &units);
            EXPECT_EQ(done, !heap.Refused());
            EXPECT_EQ(key.Get() != nullptr, done);
            EXPECT_EQ(units == 77, !done);
            return heap.Refused();
        });
        EXPECT_EQ(requests, lcid == 0x0411 ? 4u : 3u) << "capitals, composed text, key, block";
    }
}

TEST_F(UtfNormalizerMemory, NormalizeInPlaceLeavesTheTextWithoutMemory) {
    const wstring16 text = LongText();
    test::RefuseEachRequest([&](uint64 nth, FailingHeap::Mode mode) {
        UtfStringNormalizerImpl normalizer(csUTF16, 0x0411, 1);
        wstring16 place = text;
        bool done = false;
        bool refused = false;
        {
            const FailingHeap heap(nth, mode);
            done = normalizer.NormalizeInPlace(place.data(), 0);
            refused = heap.Refused();
        }
        EXPECT_EQ(done, !refused);
        EXPECT_EQ(place == text, !done);
        return refused;
    });
}

TEST_F(UtfNormalizerMemory, FailureComparesEqual) {
    const wstring16 text = LongText();
    const uint64 requests = test::RefuseEachRequest([&](uint64 nth, FailingHeap::Mode mode) {
        UtfStringNormalizerImpl normalizer(csUTF16, 0x0409, 1);
        int32 result = 77;
        bool refused = false;
        {
            const FailingHeap heap(nth, mode);
            result = normalizer.Compare(text.c_str(), ZUTEXT("a"));
            refused = heap.Refused();
        }
        EXPECT_EQ(result, refused ? 0 : 1);
        return refused;
    });
    EXPECT_GE(requests, 1u);
}

TEST_F(UtfNormalizerMemory, ShortTextsAreComparedWithoutAllocating) {
    UtfStringNormalizerImpl normalizer(csUTF16, 0x0411, 1);
    const FailingHeap heap(1);
    EXPECT_EQ(normalizer.Compare(ZUTEXT("re\u0301sume\u0301"), ZUTEXT("r\u00E9sum\u00E9")), 0);
    EXPECT_FALSE(heap.Refused());
}

TEST_F(UtfNormalizerMemory, ACopyOfAKeyTextIsAllOrNothing) {
    UtfStringNormalizerImpl normalizer(csUTF16, 0x0409, 1);
    const wchar16 key[] = {0xBBEF, 0xBABF, 0x2A2A, 0};
    wchar16 own = 'x';
    wchar16* result = &own;
    const FailingHeap heap(1);
    EXPECT_FALSE(normalizer.Normalize(key, &result, nullptr));
    EXPECT_TRUE(heap.Refused());
    EXPECT_EQ(result, &own);
}

}  // namespace
}  // namespace utf_normalizer_internal_test
