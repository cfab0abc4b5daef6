// The layer's answers about locales, line by line against those of the other system.
#include <golden/compare_answers.h>
#include <golden/locale_probe.h>
#include <gtest/gtest.h>
#include <platform/posix/cldr_edition.h>
#include <support/fixture_path.h>

namespace locale_vectors_internal_test {
namespace {

using namespace Torvo;

class LocaleVectors : public testing::Test {
protected:
    static void SetUpTestSuite() {
        answers = new test::ComparedAnswers{
            test::ParseLocaleAnswers(test::ReadTextFile(test::SourcePath("tests/golden/locale_vectors.txt"))),
            test::ParseLocaleDifferences(test::ReadTextFile(test::SourcePath("tests/golden/locale_differences.txt"))),
            test::ParseLocaleAnswers(test::LocaleProbe().Run())};
    }
    static void TearDownTestSuite() { delete answers; }

    static inline test::ComparedAnswers* answers;
};

TEST_F(LocaleVectors, EveryAnswerIsTheSameOrItsDifferenceIsListed) {
    if (!test::DataAreOfTheVectorsEdition())
        GTEST_SKIP() << "the vectors are compared with CLDR 42, and ICU here has another";
    ASSERT_GT(answers->vectors.size(), 4000u);
    test::ExpectEveryAnswerIsTheSameOrListed(*answers);
}

TEST_F(LocaleVectors, NothingIsListedThatDoesNotDiffer) {
    if (!test::DataAreOfTheVectorsEdition())
        GTEST_SKIP() << "the vectors are compared with CLDR 42, and ICU here has another";
    test::ExpectWhatIsListedDiffers(*answers);
}

TEST_F(LocaleVectors, NothingIsAnsweredThatTheVectorsDoNotHave) {
    test::ExpectNothingBeyondTheVectors(*answers);
}

}  // namespace
}  // namespace locale_vectors_internal_test
