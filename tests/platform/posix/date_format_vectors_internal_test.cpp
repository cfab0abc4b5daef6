// Dates and times in pictures, line by line against the answers of the other system.
#include <golden/compare_answers.h>
#include <golden/date_format_probe.h>
#include <gtest/gtest.h>
#include <platform/posix/cldr_edition.h>
#include <support/fixture_path.h>

namespace date_format_vectors_internal_test {
namespace {

using namespace Torvo;

class DateFormatVectors : public testing::Test {
protected:
    static void SetUpTestSuite() {
        answers = new test::ComparedAnswers{
            test::ParseLocaleAnswers(test::ReadTextFile(test::SourcePath("tests/golden/date_format_vectors.txt"))),
            test::ParseLocaleDifferences(
                test::ReadTextFile(test::SourcePath("tests/golden/date_format_differences.txt"))),
            test::ParseLocaleAnswers(test::DateFormatProbe().Run())};
    }
    static void TearDownTestSuite() { delete answers; }

    static inline test::ComparedAnswers* answers;
};

TEST_F(DateFormatVectors, EveryAnswerIsTheSameOrItsDifferenceIsListed) {
    if (!test::DataAreOfTheVectorsEdition())
        GTEST_SKIP() << "the vectors are compared with CLDR 42, and ICU here has another";
    ASSERT_GT(answers->vectors.size(), 4000u);
    test::ExpectEveryAnswerIsTheSameOrListed(*answers);
}

TEST_F(DateFormatVectors, NothingIsListedThatDoesNotDiffer) {
    if (!test::DataAreOfTheVectorsEdition())
        GTEST_SKIP() << "the vectors are compared with CLDR 42, and ICU here has another";
    test::ExpectWhatIsListedDiffers(*answers);
}

TEST_F(DateFormatVectors, NothingIsAnsweredThatTheVectorsDoNotHave) {
    test::ExpectNothingBeyondTheVectors(*answers);
}

}  // namespace
}  // namespace date_format_vectors_internal_test
