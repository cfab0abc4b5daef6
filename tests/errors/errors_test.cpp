#include <Utility/Utility.h>
#include <gtest/gtest.h>
#include <support/error_texts.h>
#include <support/vtable_slot.h>

#include <thread>
#include <vector>

namespace errors_test {
namespace {

using namespace Torvo;
using test::GuidOf;
using test::LostText;
using test::RecordingApplication;
using test::SameGuid;

wstring16 Message(uint64 index, const wchar16* format = nullptr) {
    return test::Message(*cErrorSystem::Instance(), index, format);
}

wstring16 Group(bool first) {
    return test::Group(*cErrorSystem::Instance(), first);
}

// Raises an error with a format of its own.
void Raise(int32 number, const wchar16* format = ZUTEXT("m"), const wchar16* param0 = nullptr,
           const wchar16* param1 = nullptr) {
    SetError(ERRORLEVEL_ERROR, format, GuidOf(1), number, param0, param1);
}

void RaiseMany(int32 count, int32 firstNumber = 100) {
    for (int32 i = 0; i < count; ++i) Raise(firstNumber + i);
}

class Errors : public testing::Test {
protected:
    void SetUp() override { Reset(); }
    void TearDown() override { Reset(); }
    static void Reset() {
        SetErrorFunctions(nullptr);
        SetZUErrorMode(ERRORMODE_DEFAULT);
        ClearErrors();
    }
};

TEST_F(Errors, OperationsStandInTheirPublishedOrder) {
    using test::SlotOf;
    using Long =
        void (cErrorSystem::*)(eErrorLevel, int32, const wchar16*, const GUID&, int32, const wchar16*, const wchar16*);
    using Short =
        void (cErrorSystem::*)(eErrorLevel, const wchar16*, const GUID&, int32, const wchar16*, const wchar16*);
    EXPECT_EQ(SlotOf(&cErrorSystem::HaveErrors), 2u);
    EXPECT_EQ(SlotOf(&cErrorSystem::NumErrors), 3u);
    EXPECT_EQ(SlotOf(&cErrorSystem::FirstError), 4u);
    EXPECT_EQ(SlotOf(&cErrorSystem::ClearErrors), 5u);
    EXPECT_EQ(SlotOf(&cErrorSystem::GetNextError), 6u);
    EXPECT_EQ(SlotOf(&cErrorSystem::ThisErrorOccurred), 7u);
    EXPECT_EQ(SlotOf(&cErrorSystem::GetErrorNum), 8u);
    EXPECT_EQ(SlotOf(&cErrorSystem::GetResourceID), 9u);
    EXPECT_EQ(SlotOf(&cErrorSystem::GetErrorGUID), 10u);
    EXPECT_EQ(SlotOf(&cErrorSystem::GetErrorMsg), 11u);
    EXPECT_EQ(SlotOf(static_cast<Long>(&cErrorSystem::SetError)), 12u);
    EXPECT_EQ(SlotOf(static_cast<Short>(&cErrorSystem::SetError)), 13u);
    EXPECT_EQ(SlotOf(&cErrorSystem::EndError), 14u);
    EXPECT_EQ(SlotOf(&cErrorSystem::SetErrorFunctions), 15u);
    EXPECT_EQ(SlotOf(&cErrorSystem::ReportErrorsTo), 16u);
    EXPECT_EQ(SlotOf(&cErrorSystem::ReportErrors), 17u);
    EXPECT_EQ(SlotOf(&cErrorSystem::SetZUErrorMode), 18u);
    EXPECT_EQ(SlotOf(&cErrorSystem::GetZUErrorMode), 19u);
    EXPECT_EQ(SlotOf(&cErrorSystem::EnumerateErrors), 20u);
    EXPECT_EQ(SlotOf(&cErrorFuncs::ReportErrorText), 2u);
    EXPECT_EQ(SlotOf(&cErrorFuncs::ErrorsSuppressed), 3u);
    EXPECT_EQ(SlotOf(&cErrorFuncs::KeepDuplicateErrors), 4u);
    EXPECT_EQ(SlotOf(&cErrorFuncs::GetErrorPrefix), 5u);
}

TEST_F(Errors, ANewListIsEmpty) {
    EXPECT_FALSE(HaveErrors());
    EXPECT_EQ(NumErrors(), 0);
    EXPECT_TRUE(FirstError());
    EXPECT_EQ(GetZUErrorMode(), 0);
    for (int32 i = 0; i < 30; ++i) EXPECT_EQ(GetErrorNum(i), 0);
    EXPECT_TRUE(SameGuid(GetErrorGUID(0), GUID{}));
}

TEST_F(Errors, ARecordKeepsWhatWasRaised) {
    SetError(ERRORLEVEL_ERROR, 77, ZUTEXT("^0 and ^1"), GuidOf(9), 7, ZUTEXT("one"), ZUTEXT("two"));
    EXPECT_TRUE(HaveErrors());
    EXPECT_EQ(NumErrors(), 1);
    EXPECT_FALSE(FirstError());
    EXPECT_EQ(GetErrorNum(0), 7);
    EXPECT_EQ(GetResourceID(0), 77);
    EXPECT_TRUE(SameGuid(GetErrorGUID(0), GuidOf(9)));
    EXPECT_EQ(Message(0), ZUTEXT("one and two"));
    EXPECT_TRUE(ThisErrorOccurred(7));
    EXPECT_FALSE(ThisErrorOccurred(8));
}

TEST_F(Errors, TheFormWithoutAResourceHasMinusOneForIt) {
    Raise(7);
    EXPECT_EQ(GetResourceID(0), -1);
}

TEST_F(Errors, TheFormWithoutAResourceDoesNothingForANullFormat) {
    SetError(ERRORLEVEL_ERROR, nullptr, GuidOf(1), 7, nullptr, nullptr);
    EXPECT_EQ(NumErrors(), 0);
}

TEST_F(Errors, TheOtherFormTakesANullFormatAsNone) {
    SetError(ERRORLEVEL_ERROR, 77, nullptr, GuidOf(1), 7, ZUTEXT("one"), nullptr);
    EXPECT_EQ(NumErrors(), 1);
    EXPECT_EQ(Message(0), ZUTEXT(""));
    EXPECT_EQ(Message(0, ZUTEXT("later: ^0")), ZUTEXT("later: one"));
}

TEST_F(Errors, TheOperationWithoutAResourceStoresARecordForANullFormat) {
    cErrorSystem::Instance()->SetError(ERRORLEVEL_ERROR, nullptr, GuidOf(1), 7, nullptr, nullptr);
    EXPECT_EQ(NumErrors(), 1);
    EXPECT_EQ(GetResourceID(0), -1);
}

TEST_F(Errors, ANumberRaisedTwiceIsToldOnce) {
    SetError(ERRORLEVEL_ERROR, 10, ZUTEXT("first ^0"), GuidOf(1), 7, ZUTEXT("a"), nullptr);
    SetError(static_cast<eErrorLevel>(9), 11, ZUTEXT("second ^0"), GuidOf(2), 7, ZUTEXT("b"), nullptr);
    EXPECT_EQ(NumErrors(), 1);
    EXPECT_FALSE(FirstError());
    EXPECT_EQ(GetResourceID(0), 10);
    EXPECT_TRUE(SameGuid(GetErrorGUID(0), GuidOf(1)));
    EXPECT_EQ(Message(0), ZUTEXT("first a"));
}

TEST_F(Errors, ARepeatIsFoundAcrossGroups) {
    Raise(7);
    EndError();
    Raise(7);
    EXPECT_EQ(NumErrors(), 2);
    EXPECT_TRUE(FirstError());
}

TEST_F(Errors, MinusOneIsNeverMergedAndEndsAGroup) {
    Raise(7, ZUTEXT("a"));
    Raise(-1, ZUTEXT("x"));
    Raise(-1, ZUTEXT("y"));
    Raise(8, ZUTEXT("b"));
    EXPECT_EQ(NumErrors(), 4);
    EXPECT_EQ(Group(true), ZUTEXT("a "));
    EXPECT_EQ(Group(false), ZUTEXT("*"));
    EXPECT_EQ(Group(false), ZUTEXT("b "));
    EXPECT_EQ(Group(false), ZUTEXT("*"));
}

TEST_F(Errors, EndOfGroupIsARecord) {
    Raise(7);
    EndError();
    EXPECT_EQ(NumErrors(), 2);
    EXPECT_EQ(GetErrorNum(1), -1);
    EXPECT_EQ(GetResourceID(1), -1);
    EXPECT_TRUE(FirstError());
    EXPECT_TRUE(ThisErrorOccurred(-1));
}

TEST_F(Errors, EndOfGroupWithNothingRaisedSinceTheLastAddsNothing) {
    EndError();
    EXPECT_EQ(NumErrors(), 0);
    Raise(7);
    EndError();
    EndError();
    EXPECT_EQ(NumErrors(), 2);
}

TEST_F(Errors, GroupsAreReadOneByOne) {
    Raise(1, ZUTEXT("one"));
    Raise(2, ZUTEXT("two"));
    EndError();
    Raise(3, ZUTEXT("three"));
    Raise(1, ZUTEXT("not this"));
    EndError();
    Raise(4, ZUTEXT("four"));
    EXPECT_EQ(Group(true), ZUTEXT("one two "));
    EXPECT_EQ(Group(false), ZUTEXT("three "));
    EXPECT_EQ(Group(false), ZUTEXT("four "));
    EXPECT_EQ(Group(false), ZUTEXT("*"));
    EXPECT_EQ(Group(false), ZUTEXT("*"));
    EXPECT_EQ(Group(true), ZUTEXT("one two "));
}

TEST_F(Errors, ReadingPastTheEndForeverIsHarmless) {
    Raise(1, ZUTEXT("one"));
    for (int i = 0; i < 100; ++i) EXPECT_EQ(Group(false), i == 0 ? ZUTEXT("one ") : ZUTEXT("*"));
    EXPECT_EQ(Group(true), ZUTEXT("one "));
}

TEST_F(Errors, ReadingAnEmptyListEmptiesTheBuffer) {
    wchar16 buffer[60] = ZUTEXT("before");
    EXPECT_FALSE(GetNextError(true, buffer, std::size(buffer)));
    EXPECT_EQ(buffer[0], 0);
    buffer[0] = 'x';
    EXPECT_FALSE(GetNextError(false, buffer, std::size(buffer)));
    EXPECT_EQ(buffer[0], 0);
}

TEST_F(Errors, OneLineFeedAtTheEndOfAMessageIsLeftOut) {
    Raise(1, ZUTEXT("one\n"));
    Raise(2, ZUTEXT("two\n\n"));
    Raise(3, ZUTEXT("\n"));
    Raise(4, ZUTEXT("f\nour"));
    EXPECT_EQ(Group(true), ZUTEXT("one two\n  f\nour "));
    EXPECT_EQ(Message(0), ZUTEXT("one\n"));
}

TEST_F(Errors, ThirtyRecordsFit) {
    RaiseMany(30);
    EXPECT_EQ(NumErrors(), 30);
    wstring16 all;
    for (int i = 0; i < 30; ++i) all += ZUTEXT("m ");
    EXPECT_EQ(Group(true), all);
}

TEST_F(Errors, TheThirtyFirstIsDroppedAndTheWarningIsAllThatIsRead) {
    RaiseMany(31);
    EXPECT_EQ(NumErrors(), 30);
    EXPECT_EQ(Group(true), LostText());
    EXPECT_EQ(GetErrorNum(29), 129);
    EXPECT_EQ(Message(29), ZUTEXT("m"));
    EXPECT_FALSE(ThisErrorOccurred(130));
    EXPECT_TRUE(HaveErrors());
}

TEST_F(Errors, ARepeatInAFullListLosesNothing) {
    RaiseMany(30);
    Raise(115);
    EXPECT_EQ(Group(true).substr(0, 4), ZUTEXT("m m "));
}

TEST_F(Errors, TheEndOfAGroupTakesAPlaceToo) {
    RaiseMany(30);
    EndError();
    EXPECT_EQ(NumErrors(), 30);
    EXPECT_TRUE(FirstError());
    EXPECT_EQ(Group(true), LostText());
}

TEST_F(Errors, InTheStateOfOverflowNothingIsRecordedUntilTheListIsCleared) {
    RaiseMany(31);
    ClearErrors();
    EXPECT_EQ(NumErrors(), 0);
    Raise(5, ZUTEXT("five"));
    EXPECT_EQ(Group(true), ZUTEXT("five "));
}

TEST_F(Errors, ABufferTooShortForTheSecondMessageKeepsTheFirstAndTheWarning) {
    const wstring16 first = ZUTEXT("The first message of this group, of some length.");
    const wstring16 second(200, wchar16{'s'});
    Raise(1, first.c_str());
    Raise(2, second.c_str());
    wchar16 buffer[160];
    EXPECT_TRUE(GetNextError(true, buffer, std::size(buffer)));
    EXPECT_EQ(wstring16(buffer), first + ZUTEXT(" ") + LostText());

    // From now on that is the state of the list.
    Raise(3);
    EXPECT_EQ(NumErrors(), 2);
    EXPECT_EQ(Group(true), LostText());
    EXPECT_EQ(Message(1), second);
    ClearErrors();
    Raise(3);
    EXPECT_EQ(Group(true), ZUTEXT("m "));
}

// With every size of buffer the messages that fit are followed by the warning, or end under it.
TEST_F(Errors, TheWarningStandsAtTheEndOfABufferOfAnySize) {
    const wstring16 first(40, wchar16{'f'});
    const wstring16 second(40, wchar16{'s'});
    for (uint64 size = 52; size < 200; ++size) {
        ClearErrors();
        Raise(1, first.c_str());
        Raise(2, second.c_str());
        std::vector<wchar16> buffer(size + 1, wchar16{0xABCD});
        EXPECT_TRUE(GetNextError(true, buffer.data(), size));
        EXPECT_EQ(buffer[size], 0xABCD);
        wstring16 fits;
        if (fits.size() + 1 + first.size() < size) fits += first + ZUTEXT(" ");
        if (!fits.empty() && fits.size() + 1 + second.size() < size) fits += second + ZUTEXT(" ");
        const bool complete = fits.size() == 82;
        wstring16 expected = fits;
        if (!complete) {
            expected = fits.size() + 2 + LostText().size() <= size
                           ? fits + LostText()
                           : fits.substr(0, size - LostText().size() - 1) + LostText();
        }
        EXPECT_EQ(wstring16(buffer.data()), expected) << size;
    }
}

TEST_F(Errors, AMessageFitsWhenItsSpaceAndTheTerminatorDo) {
    const wstring16 text(60, wchar16{'x'});
    Raise(1, text.c_str());
    std::vector<wchar16> buffer(62);
    EXPECT_TRUE(GetNextError(true, buffer.data(), buffer.size()));
    EXPECT_EQ(wstring16(buffer.data()), text + ZUTEXT(" "));
    buffer.resize(61);
    EXPECT_TRUE(GetNextError(true, buffer.data(), buffer.size()));
    EXPECT_EQ(wstring16(buffer.data()), LostText());
}

// The line feed that is left out needs room all the same.
TEST_F(Errors, TheLineFeedThatIsLeftOutNeedsRoom) {
    const wstring16 text = wstring16(60, wchar16{'x'}) + ZUTEXT("\n");
    Raise(1, text.c_str());
    std::vector<wchar16> buffer(63);
    EXPECT_TRUE(GetNextError(true, buffer.data(), 63));
    EXPECT_EQ(wstring16(buffer.data()), wstring16(60, wchar16{'x'}) + ZUTEXT(" "));
    EXPECT_TRUE(GetNextError(true, buffer.data(), 62));
    EXPECT_EQ(wstring16(buffer.data()), LostText());
}

TEST_F(Errors, ABufferThatIsTooSmallForTheWarningHoldsItsBeginning) {
    for (uint64 size = 0; size < 52; ++size) {
        ClearErrors();
        RaiseMany(31);
        std::vector<wchar16> buffer(size + 2, wchar16{0xABCD});
        EXPECT_TRUE(GetNextError(true, buffer.data() + 1, size));
        EXPECT_EQ(buffer.front(), 0xABCD);
        EXPECT_EQ(buffer.back(), 0xABCD);
        if (size > 0) {
            EXPECT_EQ(wstring16(buffer.data() + 1), LostText().substr(0, size - 1));
        }
    }
}

TEST_F(Errors, InTheStateOfOverflowTheResultStillSaysWhetherThereIsAGroup) {
    RaiseMany(31);
    wchar16 buffer[100];
    EXPECT_TRUE(GetNextError(true, buffer, std::size(buffer)));
    for (int i = 1; i < 30; ++i) EXPECT_TRUE(GetNextError(false, buffer, std::size(buffer))) << i;
    EXPECT_FALSE(GetNextError(false, buffer, std::size(buffer)));
    EXPECT_EQ(wstring16(buffer), LostText());
}

TEST_F(Errors, FormatsHaveTwoParametersAndACaret) {
    Raise(1, ZUTEXT("^^ ^1^0^1 ^^^0^^"), ZUTEXT("a"), ZUTEXT("b"));
    EXPECT_EQ(Message(0), ZUTEXT("^ bab ^a^"));
    Raise(2, ZUTEXT("<^0|^1>"), nullptr, nullptr);
    EXPECT_EQ(Message(1), ZUTEXT("<|>"));
    Raise(3, ZUTEXT("<^0|^1>"), ZUTEXT(""), ZUTEXT("only the second"));
    EXPECT_EQ(Message(2), ZUTEXT("<|only the second>"));
    Raise(4, ZUTEXT("<^0|^1>"), ZUTEXT("^1"), ZUTEXT("^^"));
    EXPECT_EQ(Message(3), ZUTEXT("<^1|^^>"));
}

TEST_F(Errors, AFormatEndsAtACaretThatMeansNothing) {
    Raise(1, ZUTEXT("before ^2 behind"));
    Raise(2, ZUTEXT("at the end ^"));
    Raise(3, ZUTEXT("^"));
    Raise(4, ZUTEXT("^^^"));
    EXPECT_EQ(Message(0), ZUTEXT("before "));
    EXPECT_EQ(Message(1), ZUTEXT("at the end "));
    EXPECT_EQ(Message(2), ZUTEXT(""));
    EXPECT_EQ(Message(3), ZUTEXT("^"));
    EXPECT_EQ(Group(true), ZUTEXT("before  at the end   ^ "));
}

TEST_F(Errors, AFormatIsWalkedByCharacterAndParametersAreTakenWhole) {
    const wchar16* const text = ZUTEXT("e\u0301x\U0001F600y");
    Raise(1, text);
    Raise(2, ZUTEXT("^0"), text);
    wstring16 walked;
    for (const wchar16* p = text; *p != 0; p = zuNextChar(p)) walked += *p;
    EXPECT_EQ(Message(0), walked);
    EXPECT_EQ(Message(1), text);
}

TEST_F(Errors, AFormatGivenWithTheRequestStays) {
    SetError(ERRORLEVEL_ERROR, 46, nullptr, GuidOf(1), 4, ZUTEXT("x"), nullptr);
    EXPECT_EQ(Group(true), ZUTEXT(" "));
    EXPECT_EQ(Message(0, ZUTEXT("Not found: ^0.")), ZUTEXT("Not found: x."));
    EXPECT_EQ(Message(0), ZUTEXT("Not found: x."));
    EXPECT_EQ(Group(true), ZUTEXT("Not found: x. "));
    EXPECT_EQ(Message(0, ZUTEXT("")), ZUTEXT(""));
}

TEST_F(Errors, AMessageIsCutToItsBuffer) {
    Raise(1, ZUTEXT("abcdef"));
    for (uint64 size = 0; size < 10; ++size) {
        std::vector<wchar16> buffer(12, wchar16{0xABCD});
        GetErrorMsg(nullptr, 0, buffer.data(), size);
        if (size > 0) {
            EXPECT_EQ(wstring16(buffer.data()), wstring16(ZUTEXT("abcdef")).substr(0, size - 1));
        }
        // No more than the text and its terminator is written, so the rest of a large buffer stays.
        for (uint64 i = std::min<uint64>(size, 7); i < buffer.size(); ++i) EXPECT_EQ(buffer[i], 0xABCD);
    }
}

TEST_F(Errors, AFormatIsKeptWithoutABufferForTheMessage) {
    SetError(ERRORLEVEL_ERROR, 46, nullptr, GuidOf(1), 4, ZUTEXT("x"), nullptr);
    GetErrorMsg(ZUTEXT("Not found: ^0."), 0, nullptr, 10);
    EXPECT_EQ(Message(0), ZUTEXT("Not found: x."));
}

TEST_F(Errors, ANullBufferIsOneOfSizeZero) {
    EXPECT_FALSE(GetNextError(true, nullptr, 100));
    Raise(1, ZUTEXT("one"));
    EXPECT_TRUE(GetNextError(true, nullptr, 100));
    EXPECT_EQ(Group(true), LostText());
}

TEST_F(Errors, ClearingLeavesTheResourceIdentifiers) {
    SetError(ERRORLEVEL_ERROR, 77, ZUTEXT("f"), GuidOf(1), 7, ZUTEXT("a"), nullptr);
    ClearErrors();
    EXPECT_EQ(GetResourceID(0), 77);
    EXPECT_EQ(GetErrorNum(0), 0);
    EXPECT_TRUE(SameGuid(GetErrorGUID(0), GUID{}));
    EXPECT_EQ(Message(0), ZUTEXT(""));
    EXPECT_TRUE(FirstError());
    EXPECT_EQ(Group(false), ZUTEXT("*"));
}

TEST_F(Errors, ClearingLeavesTheModeAndTheApplication) {
    RecordingApplication application;
    SetErrorFunctions(&application);
    SetZUErrorMode(static_cast<eErrorMode>(3));
    ClearErrors();
    EXPECT_EQ(GetZUErrorMode(), 3);
    Raise(1);
    EXPECT_NE(application.log, "");
}

// A format handed in for a place that is not taken is not among those that clearing empties.
TEST_F(Errors, AFormatOfAnUnusedRecordWaitsForTheNextError) {
    EXPECT_EQ(Message(0, ZUTEXT("waiting ^0")), ZUTEXT(""));
    ClearErrors();
    SetError(ERRORLEVEL_ERROR, 1, nullptr, GuidOf(1), 7, ZUTEXT("x"), nullptr);
    EXPECT_EQ(Message(0), ZUTEXT("waiting x"));
}

TEST_F(Errors, NumberZeroIsStoredAndEndsTheGroup) {
    RecordingApplication application;
    application.prefix = ZUTEXT("P:");
    SetErrorFunctions(&application);
    Raise(1, ZUTEXT("one"));
    Raise(0, ZUTEXT("zero"));
    Raise(2, ZUTEXT("two"));
    EXPECT_EQ(NumErrors(), 3);
    EXPECT_EQ(Message(1), ZUTEXT("P:"));
    EXPECT_EQ(Group(true), ZUTEXT("P:one "));
    EXPECT_EQ(Group(false), ZUTEXT("P:two "));
}

TEST_F(Errors, NumberZeroIsMergedAsAnyOther) {
    Raise(0);
    Raise(0);
    EXPECT_EQ(NumErrors(), 1);
}

TEST_F(Errors, ThisErrorOccurredLooksAtUnusedRecordsToo) {
    EXPECT_TRUE(ThisErrorOccurred(0));
    RaiseMany(29);
    EXPECT_TRUE(ThisErrorOccurred(0));
    Raise(500);
    EXPECT_FALSE(ThisErrorOccurred(0));
    EXPECT_TRUE(ThisErrorOccurred(500));
}

TEST_F(Errors, AnIndexOutsideTheListIsAnUnusedRecord) {
    RaiseMany(30);
    for (const int32 index : {-1, 30, 31, 1000000, -2147483647 - 1}) {
        EXPECT_EQ(GetErrorNum(index), 0);
        EXPECT_EQ(GetResourceID(index), 0);
        EXPECT_TRUE(SameGuid(GetErrorGUID(index), GUID{}));
        EXPECT_EQ(Message(static_cast<uint64>(index), ZUTEXT("f")), ZUTEXT(""));
    }
}

TEST_F(Errors, NumberFifteenIsCarriedAsText) {
    Raise(15, ZUTEXT("f"), ZUTEXT("1234"));
    EXPECT_EQ(GetErrorNum(0), 1234);
    EXPECT_TRUE(ThisErrorOccurred(15));
    EXPECT_FALSE(ThisErrorOccurred(1234));
}

TEST_F(Errors, NumberFifteenReadsOnToTheEndOfAllTexts) {
    Raise(15, ZUTEXT("f"), ZUTEXT("12"), ZUTEXT("34"));
    EXPECT_EQ(GetErrorNum(0), 1234);
    Raise(16, ZUTEXT("f"), ZUTEXT("56 and more"));
    EXPECT_EQ(GetErrorNum(0), 123456);
}

TEST_F(Errors, NumberFifteenWithoutANumberIsZero) {
    Raise(15, ZUTEXT("f"));
    EXPECT_EQ(GetErrorNum(0), 0);
    ClearErrors();
    Raise(15, ZUTEXT("f"), ZUTEXT("none"));
    EXPECT_EQ(GetErrorNum(0), 0);
    ClearErrors();
    Raise(15, ZUTEXT("f"), ZUTEXT("99999999999"));
    EXPECT_EQ(GetErrorNum(0), 0);
    ClearErrors();
    Raise(15, ZUTEXT("f"), ZUTEXT("  -8x"));
    EXPECT_EQ(GetErrorNum(0), -8);
}

TEST_F(Errors, TheApplicationIsAskedInOrder) {
    RecordingApplication application;
    SetErrorFunctions(&application);
    Raise(1);
    EXPECT_EQ(application.log, "suppressed? keep? prefix0 ");
    application.log.clear();
    Raise(2);
    EXPECT_EQ(application.log, "suppressed? keep? prefix1 ");
    application.log.clear();
    Raise(2);
    EXPECT_EQ(application.log, "suppressed? keep? ");
    application.log.clear();
    Raise(-1);
    EXPECT_EQ(application.log, "suppressed? prefix2 ");
    application.log.clear();
    EndError();
    EXPECT_EQ(application.log, "suppressed? prefix3 ");
    application.log.clear();
    Raise(3);
    EXPECT_EQ(application.log, "suppressed? keep? prefix0 ");
    application.log.clear();
    EXPECT_TRUE(HaveErrors());
    EXPECT_EQ(application.log, "suppressed? ");
    application.log.clear();
    NumErrors();
    FirstError();
    Group(true);
    GetErrorNum(0);
    EndError();
    EndError();
    EXPECT_EQ(application.log, "suppressed? prefix1 ");
}

TEST_F(Errors, TheApplicationIsNotAskedForThePrefixOfADroppedError) {
    RecordingApplication application;
    RaiseMany(30);
    SetErrorFunctions(&application);
    Raise(1);
    Raise(2);
    EXPECT_EQ(application.log, "suppressed? keep? suppressed? keep? ");
}

TEST_F(Errors, SuppressedErrorsLeaveNoTrace) {
    RecordingApplication application;
    Raise(1);
    SetErrorFunctions(&application);
    application.suppressed = true;
    EXPECT_FALSE(HaveErrors());
    EXPECT_EQ(NumErrors(), 1);
    Raise(2);
    EXPECT_EQ(NumErrors(), 1);
    application.suppressed = false;
    EXPECT_TRUE(HaveErrors());
    EXPECT_EQ(NumErrors(), 1);
}

TEST_F(Errors, AGroupEndsEvenWhileErrorsAreSuppressed) {
    RecordingApplication application;
    Raise(1);
    SetErrorFunctions(&application);
    application.suppressed = true;
    EndError();
    EXPECT_EQ(NumErrors(), 1);
    EXPECT_TRUE(FirstError());
}

TEST_F(Errors, DuplicatesAreKeptOnTheApplicationsWish) {
    RecordingApplication application;
    application.keepDuplicates = true;
    SetErrorFunctions(&application);
    Raise(1, ZUTEXT("a"));
    Raise(1, ZUTEXT("b"));
    EXPECT_EQ(NumErrors(), 2);
    EXPECT_EQ(Group(true), ZUTEXT("a b "));
}

TEST_F(Errors, PrefixesStandBeforeTheMessages) {
    RecordingApplication application;
    SetErrorFunctions(&application);
    application.prefix = ZUTEXT("[1] ");
    SetError(ERRORLEVEL_ERROR, 5, nullptr, GuidOf(1), 1, ZUTEXT("x"), ZUTEXT("y"));
    application.prefix = ZUTEXT("");
    Raise(2, ZUTEXT("^0^1"), ZUTEXT("z"));
    application.prefix = nullptr;
    Raise(3, ZUTEXT("w^1"), nullptr, ZUTEXT("v"));
    EXPECT_EQ(Message(0), ZUTEXT("[1] "));
    EXPECT_EQ(Message(0, ZUTEXT("^1^0")), ZUTEXT("[1] yx"));
    EXPECT_EQ(Group(true), ZUTEXT("[1] yx z wv "));
}

TEST_F(Errors, AReportTellsTheFirstGroupAfterClearingAll) {
    RecordingApplication application;
    SetErrorFunctions(&application);
    Raise(1, ZUTEXT("one\n"));
    Raise(2, ZUTEXT("two"));
    EndError();
    Raise(3, ZUTEXT("three"));
    application.log.clear();
    ReportErrors();
    EXPECT_EQ(application.log, "report ");
    EXPECT_EQ(application.reported, ZUTEXT("one two "));
    EXPECT_EQ(application.errorsWhileReporting, 0);
    EXPECT_EQ(NumErrors(), 0);
}

TEST_F(Errors, AReportOfAnyLengthIsTold) {
    RecordingApplication application;
    SetErrorFunctions(&application);
    const wstring16 text(100000, wchar16{'x'});
    Raise(1, text.c_str());
    Raise(2, ZUTEXT("^0"), text.c_str());
    ReportErrors();
    EXPECT_EQ(application.reported, text + ZUTEXT(" ") + text + ZUTEXT(" "));
}

TEST_F(Errors, AReportOfAnOverflowIsTheWarningAlone) {
    RecordingApplication application;
    SetErrorFunctions(&application);
    RaiseMany(31);
    ReportErrors();
    EXPECT_EQ(application.reported, LostText());
    EXPECT_EQ(NumErrors(), 0);
    Raise(1);
    EXPECT_EQ(NumErrors(), 1);
}

TEST_F(Errors, NothingIsReportedWhenTheFirstRecordIsNoError) {
    RecordingApplication application;
    SetErrorFunctions(&application);
    ReportErrors();
    Raise(-1);
    Raise(1);
    application.log.clear();
    ReportErrors();
    EXPECT_EQ(application.log, "");
    EXPECT_EQ(NumErrors(), 0);
}

TEST_F(Errors, AReportWithoutAnApplicationClears) {
    Raise(1);
    ReportErrors();
    EXPECT_EQ(NumErrors(), 0);
}

wstring16 received;
int receivedCount = 0;
void Receive(const wchar16* text) {
    received = text;
    ++receivedCount;
}

TEST_F(Errors, AReportGoesToAGivenFunction) {
    RecordingApplication application;
    SetErrorFunctions(&application);
    Raise(1, ZUTEXT("one"));
    application.log.clear();
    receivedCount = 0;
    cErrorSystem::Instance()->ReportErrorsTo(&Receive);
    EXPECT_EQ(received, ZUTEXT("one "));
    EXPECT_EQ(application.log, "");
    EXPECT_EQ(NumErrors(), 0);
    cErrorSystem::Instance()->ReportErrorsTo(&Receive);
    EXPECT_EQ(receivedCount, 1);
    Raise(1, ZUTEXT("one"));
    cErrorSystem::Instance()->ReportErrorsTo(nullptr);
    EXPECT_EQ(NumErrors(), 0);
}

// What the visitors below have seen.
struct Visit {
    uint32 guid;
    int32 number;
    wstring16 param0;
    wstring16 param1;
    bool operator==(const Visit&) const = default;
};
std::vector<Visit> visits;

void See(const GUID* guid, const int32* number, const wchar16* const* param0, const int32* param0Length,
         const wchar16* const* param1, const int32* param1Length) {
    visits.push_back({static_cast<uint32>(guid->Data1), *number,
                      wstring16(*param0, static_cast<std::size_t>(*param0Length)),
                      wstring16(*param1, static_cast<std::size_t>(*param1Length))});
}

std::vector<int32> NumbersSeen(ErrorVisitor visitor, bool clearAfterwards = false) {
    visits.clear();
    cErrorSystem::Instance()->EnumerateErrors(visitor, clearAfterwards);
    std::vector<int32> numbers;
    for (const Visit& visit : visits) numbers.push_back(visit.number);
    return numbers;
}

TEST_F(Errors, AVisitorSeesTheFirstGroup) {
    SetError(ERRORLEVEL_ERROR, 1, nullptr, GuidOf(11), 1, ZUTEXT("a"), ZUTEXT("bc"));
    SetError(ERRORLEVEL_ERROR, 2, nullptr, GuidOf(12), 2, nullptr, ZUTEXT("d"));
    EndError();
    Raise(3);
    EXPECT_EQ(NumbersSeen(&See), (std::vector<int32>{1, 2}));
    EXPECT_EQ(visits[0], (Visit{11, 1, ZUTEXT("a"), ZUTEXT("bc")}));
    EXPECT_EQ(visits[1], (Visit{12, 2, ZUTEXT(""), ZUTEXT("d")}));
    EXPECT_EQ(NumErrors(), 4);
}

TEST_F(Errors, AVisitorSeesNumberFifteenAsItStands) {
    Raise(15, ZUTEXT("f"), ZUTEXT("1234"));
    EXPECT_EQ(NumbersSeen(&See), (std::vector<int32>{15}));
}

TEST_F(Errors, AVisitMayClearTheListAfterwards) {
    RaiseMany(2);
    EXPECT_EQ(NumbersSeen(&See, true), (std::vector<int32>{100, 101}));
    EXPECT_EQ(NumErrors(), 0);
    RaiseMany(2);
    EXPECT_EQ(NumbersSeen(nullptr, true), (std::vector<int32>{}));
    EXPECT_EQ(NumErrors(), 0);
}

TEST_F(Errors, AVisitorSeesNothingOfAnOverflow) {
    RaiseMany(31);
    EXPECT_EQ(NumbersSeen(&See), (std::vector<int32>{}));
    EXPECT_EQ(NumErrors(), 30);
    NumbersSeen(&See, true);
    EXPECT_EQ(NumErrors(), 0);
}

TEST_F(Errors, AVisitLeavesTheReaderBehindTheGroup) {
    Raise(1, ZUTEXT("one"));
    Raise(2, ZUTEXT("two"));
    EndError();
    Raise(3, ZUTEXT("three"));
    NumbersSeen(&See);
    // The position is the marker's own, not the one behind it.
    EXPECT_EQ(Group(false), ZUTEXT("*"));
    EXPECT_EQ(Group(false), ZUTEXT("three "));
}

TEST_F(Errors, TheWalkGoesOnBehindThePositionThatTheVisitorLeaves) {
    RaiseMany(3);
    EndError();
    RaiseMany(3, 200);
    const auto readFirstGroup = [](const GUID* guid, const int32* number, const wchar16* const* param0,
                                   const int32* param0Length, const wchar16* const* param1, const int32* param1Length) {
        See(guid, number, param0, param0Length, param1, param1Length);
        // Reading the group puts the position on 4, the first record behind the marker.
        if (*number == 100) Group(true);
    };
    EXPECT_EQ(NumbersSeen(readFirstGroup), (std::vector<int32>{100, 201, 202}));
}

TEST_F(Errors, AVisitorThatClearsTheListEndsTheWalk) {
    RaiseMany(3);
    const auto clear = [](const GUID* guid, const int32* number, const wchar16* const* param0,
                          const int32* param0Length, const wchar16* const* param1, const int32* param1Length) {
        See(guid, number, param0, param0Length, param1, param1Length);
        ClearErrors();
    };
    EXPECT_EQ(NumbersSeen(clear), (std::vector<int32>{100}));
}

TEST_F(Errors, AVisitorThatCausesAnOverflowEndsTheWalk) {
    RaiseMany(3);
    const auto readShort = [](const GUID* guid, const int32* number, const wchar16* const* param0,
                              const int32* param0Length, const wchar16* const* param1, const int32* param1Length) {
        See(guid, number, param0, param0Length, param1, param1Length);
        wchar16 buffer[2];
        GetNextError(true, buffer, std::size(buffer));
    };
    EXPECT_EQ(NumbersSeen(readShort), (std::vector<int32>{100}));
}

TEST_F(Errors, AVisitorMaySeeErrorsThatItRaises) {
    Raise(100);
    const auto raiseMore = [](const GUID* guid, const int32* number, const wchar16* const* param0,
                              const int32* param0Length, const wchar16* const* param1, const int32* param1Length) {
        See(guid, number, param0, param0Length, param1, param1Length);
        if (*number < 105) Raise(*number + 1);
    };
    EXPECT_EQ(NumbersSeen(raiseMore), (std::vector<int32>{100, 101, 102, 103, 104, 105}));
}

TEST_F(Errors, EachThreadHasItsOwnList) {
    Raise(1);
    std::thread([] {
        EXPECT_EQ(NumErrors(), 0);
        Raise(2);
        EXPECT_TRUE(ThisErrorOccurred(2));
        InstanceData::Destroy(false, false);
    }).join();
    EXPECT_EQ(NumErrors(), 1);
    EXPECT_FALSE(ThisErrorOccurred(2));
}

TEST_F(Errors, DestroyingTheInstanceLeavesTheApplicationAlive) {
    RecordingApplication application;
    std::thread([&] {
        SetErrorFunctions(&application);
        Raise(1);
        InstanceData::Destroy(false, false);
    }).join();
    EXPECT_EQ(application.log, "suppressed? keep? prefix0 ");
}

// A host's list, which only counts.
class CountingErrors : public cErrorSystem {
public:
    bool HaveErrors() override { return true; }
    int32 NumErrors() override { return raised; }
    bool FirstError() override { return false; }
    void ClearErrors() override { raised = 0; }
    bool GetNextError(bool, wchar16*, uint64) override { return true; }
    bool ThisErrorOccurred(int32 number) override { return number == 77; }
    int32 GetErrorNum(int32 index) override { return index + 1; }
    int32 GetResourceID(int32 index) override { return index + 2; }
    const GUID& GetErrorGUID(int32) override { return guid; }
    void GetErrorMsg(const wchar16*, uint64 index, wchar16* buffer, uint64 size) override {
        buffer[0] = static_cast<wchar16>(index + size);
    }
    void SetError(eErrorLevel, int32, const wchar16*, const GUID&, int32, const wchar16*, const wchar16*) override {
        raised += 10;
    }
    void SetError(eErrorLevel, const wchar16*, const GUID&, int32, const wchar16*, const wchar16*) override {
        raised += 1;
    }
    void EndError() override { raised += 100; }
    void SetErrorFunctions(cErrorFuncs*) override { raised += 1000; }
    void ReportErrorsTo(void (*)(const wchar16*)) override {}
    void ReportErrors() override { raised += 10000; }
    void SetZUErrorMode(eErrorMode newMode) override { mode = newMode; }
    eErrorMode GetZUErrorMode() override { return mode; }
    void EnumerateErrors(ErrorVisitor, bool) override {}

    int32 raised = 0;
    eErrorMode mode = ERRORMODE_DEFAULT;
    GUID guid = GuidOf(5);
};

TEST_F(Errors, ServiceIsReplacedThroughItsSetter) {
    cErrorSystem* const original = cErrorSystem::Instance();
    CountingErrors own;
    EXPECT_TRUE(cErrorSystem::Instance(&own));
    SetError(ERRORLEVEL_ERROR, 1, nullptr, GUID{}, 1, nullptr, nullptr);
    SetError(ERRORLEVEL_ERROR, ZUTEXT(""), GUID{}, 1, nullptr, nullptr);
    SetError(ERRORLEVEL_ERROR, nullptr, GUID{}, 1, nullptr, nullptr);
    EndError();
    SetErrorFunctions(nullptr);
    ReportErrors();
    EXPECT_EQ(NumErrors(), 11111);
    EXPECT_TRUE(HaveErrors());
    EXPECT_FALSE(FirstError());
    EXPECT_TRUE(GetNextError(true, nullptr, 0));
    EXPECT_TRUE(ThisErrorOccurred(77));
    EXPECT_EQ(GetErrorNum(6), 7);
    EXPECT_EQ(GetResourceID(6), 8);
    EXPECT_EQ(&GetErrorGUID(0), &own.guid);
    wchar16 unit = 0;
    GetErrorMsg(nullptr, 3, &unit, 4);
    EXPECT_EQ(unit, 7);
    SetZUErrorMode(static_cast<eErrorMode>(9));
    EXPECT_EQ(GetZUErrorMode(), 9);
    ClearErrors();
    EXPECT_EQ(NumErrors(), 0);
    EXPECT_TRUE(cErrorSystem::Instance(original));
    EXPECT_FALSE(HaveErrors());
}

TEST_F(Errors, ANewServiceBelongsToTheCaller) {
    cErrorSystem* const created = cErrorSystem::Create();
    ASSERT_NE(created, nullptr);
    created->SetError(ERRORLEVEL_ERROR, ZUTEXT("own"), GuidOf(1), 1, nullptr, nullptr);
    EXPECT_EQ(test::Group(*created, true), ZUTEXT("own "));
    EXPECT_EQ(NumErrors(), 0);
    delete created;
}

}  // namespace
}  // namespace errors_test
