#include <Utility/errors/raise.h>
#include <gtest/gtest.h>
#include <support/error_texts.h>

namespace raise_internal_test {
namespace {

using namespace Torvo;
using test::SameGuid;

wstring16 Parameters() {
    return test::Message(*cErrorSystem::Instance(), 0, ZUTEXT("^0|^1"));
}

class Raise : public testing::Test {
protected:
    void SetUp() override { ClearErrors(); }
    void TearDown() override { ClearErrors(); }
};

TEST_F(Raise, TheDefaultGuidIsTheLibrarysOwn) {
    const GUID guid = {0xEE011B72, 0x700B, 0x11D2, {0xBB, 0x9D, 0x00, 0x60, 0x08, 0x9F, 0x5A, 0x53}};
    EXPECT_TRUE(SameGuid(DefaultErrorGuid, guid));
}

TEST_F(Raise, AnErrorHasNumberResourceAndParametersButNoFormat) {
    RaiseError(ERRORLEVEL_ERROR, 7, 49, ZUTEXT("a"), ZUTEXT("b"));
    EXPECT_EQ(GetErrorNum(0), 7);
    EXPECT_EQ(GetResourceID(0), 49);
    EXPECT_TRUE(SameGuid(GetErrorGUID(0), DefaultErrorGuid));
    EXPECT_EQ(test::Message(*cErrorSystem::Instance(), 0), ZUTEXT(""));
    EXPECT_EQ(Parameters(), ZUTEXT("a|b"));
}

TEST_F(Raise, ParametersMayBeLeftOut) {
    RaiseError(ERRORLEVEL_ERROR, 19, 61);
    EXPECT_EQ(Parameters(), ZUTEXT("|"));
}

TEST_F(Raise, AnErrorOfAnotherComponentHasItsGuid) {
    RaiseErrorWithGuid(ERRORLEVEL_ERROR, test::GuidOf(3), 7, 49, nullptr, ZUTEXT("b"));
    EXPECT_TRUE(SameGuid(GetErrorGUID(0), test::GuidOf(3)));
    EXPECT_EQ(Parameters(), ZUTEXT("|b"));
}

TEST_F(Raise, AMessageBringsItsFormatAndNoResource) {
    RaiseErrorMessage(ERRORLEVEL_ERROR, 7, ZUTEXT("<^0>"), ZUTEXT("a"));
    EXPECT_EQ(GetResourceID(0), -1);
    EXPECT_TRUE(SameGuid(GetErrorGUID(0), DefaultErrorGuid));
    EXPECT_EQ(test::Message(*cErrorSystem::Instance(), 0), ZUTEXT("<a>"));
}

TEST_F(Raise, AMessageWithoutAFormatIsNotRaised) {
    RaiseErrorMessage(ERRORLEVEL_ERROR, 7, nullptr, ZUTEXT("a"));
    EXPECT_EQ(NumErrors(), 0);
}

TEST_F(Raise, AParameterIsPrinted) {
    RaiseErrorPrintf(11, 53, ZUTEXT("%d of %ls"), -1005, ZUTEXT("x"));
    EXPECT_EQ(GetErrorNum(0), 11);
    EXPECT_EQ(GetResourceID(0), 53);
    EXPECT_TRUE(SameGuid(GetErrorGUID(0), DefaultErrorGuid));
    EXPECT_EQ(Parameters(), ZUTEXT("-1005 of x|"));
}

TEST_F(Raise, APrintedParameterIsCutTo31Units) {
    RaiseErrorPrintf(11, 53, ZUTEXT("%032d"), 7);
    EXPECT_EQ(Parameters(), wstring16(31, wchar16{'0'}) + ZUTEXT("|"));
}

}  // namespace
}  // namespace raise_internal_test
