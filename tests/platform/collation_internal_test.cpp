#include <Utility/platform/collation.h>
#include <Utility/text/collation_loader.h>
#include <gtest/gtest.h>

#include <cstring>
#include <vector>

namespace platform_collation_internal_test {
namespace {

using namespace Torvo;

std::vector<wstring16> asked;

HINSTANCE Refuse(const wchar16* name) {
    asked.emplace_back(name);
    return nullptr;
}

TEST(CollationCalls, AreLinkedOrLookedFor) {
    const bool isKnown = LoadCollation() != nullptr;
    for (int attempt = 0; attempt < 2; ++attempt) {
        asked.clear();
        const platform::CollationCalls* const calls = platform::FindCollationCalls(Refuse);
        EXPECT_EQ(calls != nullptr, isKnown);
        const std::vector<wstring16> lookedFor = {ZUTEXT("icu.dll"), ZUTEXT("icudt55.dll")};
        EXPECT_EQ(asked, isKnown ? std::vector<wstring16>() : lookedFor)
            << "each attempt anew, to the first that lacks";
    }
    EXPECT_EQ(LoadCollation(), isKnown ? LoadCollation() : nullptr);
}

TEST(CollationCalls, OrderTexts) {
    const platform::CollationCalls* const calls = LoadCollation();
    if (calls == nullptr) GTEST_SKIP() << "the system has no ICU libraries";
    int32 status = 0;
    platform::Collator* const collator = calls->open("sv_SE", &status);
    ASSERT_NE(collator, nullptr);
    EXPECT_LE(status, 0);
    EXPECT_EQ(calls->compare(collator, ZUTEXT("z"), 1, ZUTEXT("\u00E5"), 1), -1);
    uint8 keys[2][64];
    const int32 size = calls->getSortKey(collator, ZUTEXT("z"), 1, keys[0], 64);
    EXPECT_EQ(keys[0][size - 1], 0);
    EXPECT_EQ(std::strlen(reinterpret_cast<const char*>(keys[0])) + 1, static_cast<std::size_t>(size));
    EXPECT_EQ(calls->getSortKey(collator, ZUTEXT("z"), 1, nullptr, 0), size);
    calls->getSortKey(collator, ZUTEXT("Z"), 1, keys[1], 64);
    EXPECT_NE(std::memcmp(keys[0], keys[1], static_cast<std::size_t>(size)), 0);
    calls->setStrength(collator, platform::CollationStrength::Secondary);
    calls->getSortKey(collator, ZUTEXT("z"), 1, keys[0], 64);
    calls->getSortKey(collator, ZUTEXT("Z"), 1, keys[1], 64);
    EXPECT_STREQ(reinterpret_cast<const char*>(keys[0]), reinterpret_cast<const char*>(keys[1]));
    calls->close(collator);
}

TEST(CollationCalls, SayHowMuchRoomAConversionNeeds) {
    const platform::CollationCalls* const calls = LoadCollation();
    if (calls == nullptr) GTEST_SKIP() << "the system has no ICU libraries";
    wchar16 target[4] = {};
    int32 status = 0;
    EXPECT_EQ(calls->toUpper(ZUTEXT("\u00DF\u00DFi"), 3, target, 4, &status), 5);
    EXPECT_EQ(status, platform::CollationBufferOverflow);
    status = 0;
    EXPECT_EQ(calls->compose(ZUTEXT("e\u0301"), 2, target, 4, &status), 1);
    EXPECT_LE(status, 0);
    EXPECT_EQ(target[0], 0x00E9);
    status = 7;
    EXPECT_EQ(calls->open("en", &status), nullptr) << "nothing is done after a failure";
}

}  // namespace
}  // namespace platform_collation_internal_test
