// What the public suite cannot reach: limits of the texts, short memory, callbacks that break the rules.
#include <Utility/errors/error_system.h>
#include <gtest/gtest.h>
#include <support/error_texts.h>

#include <limits>
#include <stdexcept>

namespace error_system_internal_test {
namespace {

using namespace Torvo;
using test::Group;
using test::LostText;
using test::Message;

constexpr uint64 Room = cErrorSystemImpl::FirstRoom;

void Raise(cErrorSystem& errors, int32 number, const wchar16* format, const wchar16* param0 = nullptr,
           const wchar16* param1 = nullptr) {
    errors.SetError(ERRORLEVEL_ERROR, format, GUID{}, number, param0, param1);
}

TEST(ErrorSystem, RefusesToBeCreatedWithoutMemory) {
    const uint64 impossible = std::numeric_limits<uint64>::max();
    try {
        const cErrorSystemImpl errors(impossible);
        FAIL() << "not refused";
    } catch (cErrorSystemImpl::eCreateError error) {
        EXPECT_EQ(error, 1);
    }
}

TEST(ErrorSystem, CutsATextAtTheLimitOfThePool) {
    cErrorSystemImpl errors(Room, 10);
    Raise(errors, 1, ZUTEXT("f"), ZUTEXT("abcdef"), ZUTEXT("ghijkl"));
    EXPECT_EQ(errors.NumErrors(), 1);
    EXPECT_EQ(Message(errors, 0, ZUTEXT("^1")), ZUTEXT("ghij"));
    EXPECT_EQ(Group(errors, true), LostText());
}

TEST(ErrorSystem, FillsThePoolToItsLimitWithoutLoss) {
    cErrorSystemImpl errors(Room, 10);
    Raise(errors, 1, ZUTEXT("^1"), ZUTEXT("abcdef"), ZUTEXT("ghij"));
    EXPECT_EQ(Group(errors, true), ZUTEXT("ghij "));
    Raise(errors, 2, ZUTEXT("^0."), ZUTEXT(""), nullptr);
    EXPECT_EQ(Group(errors, true), ZUTEXT("ghij . "));
    Raise(errors, 3, ZUTEXT("^0."), ZUTEXT("k"), nullptr);
    EXPECT_EQ(errors.NumErrors(), 3);
    EXPECT_EQ(Group(errors, true), LostText());
}

TEST(ErrorSystem, CutsAPrefixToo) {
    cErrorSystemImpl errors(Room, 3);
    test::RecordingApplication application;
    application.prefix = ZUTEXT("prefix");
    errors.SetErrorFunctions(&application);
    Raise(errors, 1, ZUTEXT("^0"), ZUTEXT("abc"));
    EXPECT_EQ(Message(errors, 0), ZUTEXT("pre"));
    EXPECT_EQ(Group(errors, true), LostText());
}

// A loss in one record keeps the later ones out, but they take their places, until none is left.
TEST(ErrorSystem, ErrorsBehindALossAreDroppedAndTakeTheirPlaces) {
    cErrorSystemImpl errors(Room, 3);
    Raise(errors, 1, ZUTEXT("f"), ZUTEXT("abcd"));
    for (int32 number = 2; number < 50; ++number) Raise(errors, number, ZUTEXT("f"));
    EXPECT_EQ(errors.NumErrors(), 1);
    EXPECT_FALSE(errors.ThisErrorOccurred(2));
    errors.ClearErrors();
    Raise(errors, 2, ZUTEXT("f"));
    EXPECT_EQ(Group(errors, true), ZUTEXT("f "));
}

TEST(ErrorSystem, AMessageEndsOneUnitBelowTheLimit) {
    cErrorSystemImpl errors(Room, 10);
    Raise(errors, 1, ZUTEXT("0123456789abcdef"));
    EXPECT_EQ(Message(errors, 0), ZUTEXT("012345678"));
    Raise(errors, 2, ZUTEXT("01234567^0^0"), ZUTEXT("xyz"));
    EXPECT_EQ(Message(errors, 1), ZUTEXT("01234567xyz"));
}

// An application that calls the list from inside its own calls, which it must not: nothing may be corrupted.
class Intruder : public cErrorFuncs {
public:
    explicit Intruder(cErrorSystem& list) : errors(list) {}
    void ReportErrorText(const wchar16*) override {}
    bool ErrorsSuppressed() override { return false; }
    bool KeepDuplicateErrors() override { return false; }
    const wchar16* GetErrorPrefix(int32) override {
        if (clears) errors.ClearErrors();
        if (raises && depth < 40) {
            ++depth;
            Raise(errors, 1000 + depth, ZUTEXT("^0"), ZUTEXT("inner"));
        }
        return ZUTEXT("P");
    }
    cErrorSystem& errors;
    bool clears = false;
    bool raises = false;
    int32 depth = 0;
};

TEST(ErrorSystem, SurvivesAnApplicationThatClearsTheListWhileAnErrorIsStored) {
    cErrorSystemImpl errors;
    Intruder intruder(errors);
    errors.SetErrorFunctions(&intruder);
    Raise(errors, 1, ZUTEXT("^0"), ZUTEXT("a text of some length"));
    intruder.clears = true;
    Raise(errors, 15, ZUTEXT("^0"), ZUTEXT("1"));
    intruder.clears = false;
    for (uint64 i = 0; i < 30; ++i) Message(errors, i);
    EXPECT_THROW(errors.GetErrorNum(1), std::out_of_range);
    Group(errors, true);
    errors.ClearErrors();
    for (int32 number = 20; number < 60; ++number) Raise(errors, number, ZUTEXT("^0"), ZUTEXT("b"));
    EXPECT_EQ(errors.NumErrors(), 30);
}

TEST(ErrorSystem, SurvivesAnApplicationThatRaisesErrorsWhileOneIsStored) {
    cErrorSystemImpl errors;
    Intruder intruder(errors);
    errors.SetErrorFunctions(&intruder);
    intruder.raises = true;
    Raise(errors, 1, ZUTEXT("^0"), ZUTEXT("outer"));
    for (uint64 i = 0; i < 30; ++i) Message(errors, i);
    Group(errors, true);
    EXPECT_TRUE(errors.ThisErrorOccurred(1));
    errors.ClearErrors();
    EXPECT_EQ(errors.NumErrors(), 0);
}

}  // namespace
}  // namespace error_system_internal_test
