// The layer's answers about locales, line by line against those of the other system.
#include <golden/locale_probe.h>
#include <golden/locale_vectors.h>
#include <gtest/gtest.h>
#include <support/fixture_path.h>
#include <unicode/ulocdata.h>

#include <set>

namespace {

using namespace Torvo;

class LocaleVectors : public testing::Test {
protected:
    static void SetUpTestSuite() {
        vectors = new test::LocaleAnswers(test::ParseLocaleAnswers(test::LocaleVectorsText()));
        differences = new test::LocaleDifferences(
            test::ParseLocaleDifferences(test::ReadTextFile(Torvo::test::SourcePath("tests/golden/locale_differences.txt"))));
        ours = new test::LocaleAnswers(test::ParseLocaleAnswers(test::LocaleProbe().Run()));
    }
    static void TearDownTestSuite() {
        delete vectors;
        delete differences;
        delete ours;
    }

    static std::string Ours(const std::pair<std::string, std::string>& key) {
        const auto found = ours->find(key);
        return found != ours->end() ? found->second : "no answer";
    }

    static inline test::LocaleAnswers* vectors;
    static inline test::LocaleDifferences* differences;
    static inline test::LocaleAnswers* ours;
};

// The answers depend on the edition of the data. Other editions are right in their own way.
bool DataAreOfTheVectorsEdition() {
    UVersionInfo version;
    UErrorCode status = U_ZERO_ERROR;
    ulocdata_getCLDRVersion(version, &status);
    return U_SUCCESS(status) && version[0] == 42;
}

TEST_F(LocaleVectors, EveryAnswerIsTheSameOrItsDifferenceIsListed) {
    if (!DataAreOfTheVectorsEdition())
        GTEST_SKIP() << "the vectors are compared with CLDR 42, and ICU here has another";
    ASSERT_GT(vectors->size(), 4000u);
    for (const auto& [key, expected] : *vectors) {
        const std::string answer = Ours(key);
        if (answer == expected) continue;
        const auto listed = differences->find(key);
        const std::string line = key.first + '\t' + key.second + '\t' + expected + '\t' + answer;
        if (listed == differences->end()) {
            ADD_FAILURE() << "unlisted difference:\n" << line;
        } else {
            EXPECT_EQ(listed->second.expected, expected) << line;
            EXPECT_EQ(listed->second.ours, answer) << line;
        }
    }
}

TEST_F(LocaleVectors, NothingIsListedThatDoesNotDiffer) {
    if (!DataAreOfTheVectorsEdition())
        GTEST_SKIP() << "the vectors are compared with CLDR 42, and ICU here has another";
    for (const auto& [key, difference] : *differences) {
        const auto vector = vectors->find(key);
        ASSERT_NE(vector, vectors->end()) << key.first << ' ' << key.second << " is not among the vectors";
        EXPECT_NE(Ours(key), vector->second) << key.first << ' ' << key.second << " no longer differs";
        EXPECT_FALSE(difference.reason.empty()) << key.first << ' ' << key.second << " gives no reason";
    }
}

TEST_F(LocaleVectors, NothingIsAnsweredThatTheVectorsDoNotHave) {
    for (const auto& [key, answer] : *ours) {
        EXPECT_TRUE(vectors->contains(key)) << key.first << ' ' << key.second << '=' << answer;
    }
}

}  // namespace
