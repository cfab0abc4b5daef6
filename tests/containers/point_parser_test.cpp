#include <Utility/number_parsing.h>
#include <Utility/point_containers.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <memory>
#include <string>

#include "containers/points.h"
#include "reference/plain_point_parser.h"
#include "support/numeric_locale.h"
#include "support/random.h"
#include "support/vtable_slot.h"

namespace point_parser_test {
namespace {

using namespace Torvo;
using test::PlainPointParser;
using test::Point;
using test::Points;
using test::PointsOf;

wstring16 Wide(const std::string& text) {
    return {text.begin(), text.end()};
}

// A container, and a parser that fills it.
struct Parser {
    std::unique_ptr<DPNTContainer> container{DPNTContainer::Create(4, 4)};
    std::unique_ptr<PointParserFactory> parser;

    Parser(const wchar16* coordinateSeparators, const wchar16* pointSeparators, bool addWhitespace = false)
        : parser(PointParserFactory::Create(container.get(), coordinateSeparators, pointSeparators, addWhitespace)) {}

    bool Parse(const std::string& text, bool reset = true) { return ParseUpTo(text.size(), text, reset); }
    bool ParseUpTo(uint64 length, const std::string& text, bool reset = true) {
        const wstring16 units = Wide(text);
        return parser->ParsePoints(units.c_str(), length, reset);
    }
    Points Read() { return PointsOf(*container); }
};

// Reads a text that has to be read whole.
Points Read(const std::string& text, const wchar16* coordinateSeparators = ZUTEXT(","),
            const wchar16* pointSeparators = ZUTEXT(" ")) {
    Parser parser(coordinateSeparators, pointSeparators);
    EXPECT_TRUE(parser.Parse(text)) << text;
    return parser.Read();
}

// Reads a text that has to fail, and gives the points before that.
Points ReadBroken(const std::string& text, const wchar16* coordinateSeparators = ZUTEXT(","),
                  const wchar16* pointSeparators = ZUTEXT(" ")) {
    Parser parser(coordinateSeparators, pointSeparators);
    EXPECT_FALSE(parser.Parse(text)) << text;
    return parser.Read();
}

const Points kTwo{{1, 2}, {3, 4}};

TEST(PointParser, OperationsStandInTheirPublishedOrder) {
    EXPECT_EQ(test::SlotOf(&PointParserFactory::ParsePoints), 2u);
}

TEST(PointParser, ReadsPointsWithAndWithoutAThirdNumber) {
    EXPECT_EQ(Read("1,2 3,4"), kTwo);
    EXPECT_EQ(Read("1,2,9 3,4,9"), kTwo);
    EXPECT_EQ(Read("1,2,9 3,4"), kTwo);
    EXPECT_EQ(Read("1,2 3,4,9"), kTwo);
}

TEST(PointParser, EmptyTextIsTrueAndNoPoint) {
    EXPECT_EQ(Read(""), Points());
    EXPECT_EQ(Read("   "), Points()) << "separators of points alone";
}

TEST(PointParser, LengthZeroReadsNothing) {
    Parser parser(ZUTEXT(","), ZUTEXT(" "));
    EXPECT_TRUE(parser.ParseUpTo(0, "1,2 3,4"));
    EXPECT_TRUE(parser.ParseUpTo(0, "no number"));
    EXPECT_EQ(parser.Read(), Points());
}

TEST(PointParser, SkipsLeadingAndTrailingSeparatorsOfPoints) {
    EXPECT_EQ(Read("   1,2 3,4"), kTwo);
    EXPECT_EQ(Read("1,2 3,4   "), kTwo);
    EXPECT_EQ(Read(";;; ;1,2; ;3,4;", ZUTEXT(","), ZUTEXT("; ")), kTwo);
}

TEST(PointParser, SkipsRunsOfSeparators) {
    EXPECT_EQ(Read("1,,,2   3,,4"), kTwo);
    EXPECT_EQ(Read("1:,2;|3,:4", ZUTEXT(",:"), ZUTEXT("|;")), kTwo);
    EXPECT_EQ(Read("1,2,,,9   3,4,,9  "), kTwo);
}

TEST(PointParser, LeadingSeparatorsOfCoordinatesAreNotSkipped) {
    EXPECT_EQ(ReadBroken(",1,2"), Points());
    EXPECT_EQ(ReadBroken("1,2 ,3,4"), (Points{{1, 2}})) << "the 3 is a third number, and the comma behind it no number";
}

TEST(PointParser, LoneNumberAtTheEndFails) {
    EXPECT_EQ(ReadBroken("1,2 3"), (Points{{1, 2}}));
    EXPECT_EQ(ReadBroken("1,2 3,"), (Points{{1, 2}}));
    EXPECT_EQ(ReadBroken("3"), Points());
}

TEST(PointParser, WhatIsNoNumberFails) {
    EXPECT_EQ(ReadBroken("x,2"), Points());
    EXPECT_EQ(ReadBroken("1,2 x,4"), (Points{{1, 2}}));
    EXPECT_EQ(ReadBroken("1,2 3,x"), (Points{{1, 2}}));
    EXPECT_EQ(ReadBroken("1,2;3,4"), (Points{{1, 2}})) << "no separator of this parser";
    EXPECT_EQ(ReadBroken("1,-"), Points());
}

TEST(PointParser, FaultyThirdNumberFailsAndKeepsItsPoint) {
    EXPECT_EQ(ReadBroken("1,2,x 3,4"), (Points{{1, 2}}));
    EXPECT_EQ(ReadBroken("1,2, "), (Points{{1, 2}}));
    EXPECT_EQ(ReadBroken("1,2,1e999 3,4"), (Points{{1, 2}}));
}

TEST(PointParser, FourthNumberFails) {
    EXPECT_EQ(ReadBroken("1,2,3,4 5,6"), (Points{{1, 2}}));
}

TEST(PointParser, NumbersOutOfRangeFail) {
    EXPECT_EQ(ReadBroken("1,2 1e999,4"), (Points{{1, 2}}));
    EXPECT_EQ(ReadBroken("1,2 3,-1e999"), (Points{{1, 2}}));
    EXPECT_EQ(ReadBroken("1,2 1e-999,4"), (Points{{1, 2}}));
}

TEST(PointParser, ReadsAllFormsOfNumbers) {
    const Points points = Read("-1.5,+2 .25,1e3 1D2,-0 123456789.123456789,0.1 18446744073709551616,5e-324");
    const Points expected{
        {-1.5, 2}, {0.25, 1000}, {100, -0.0}, {123456789.123456789, 0.1}, {18446744073709551616.0, 5e-324}};
    EXPECT_EQ(points, expected);
}

TEST(PointParser, LengthStopsBetweenPointsAlone) {
    const std::string text = "10,20 30,40 50,60";
    for (uint64 length = 0; length <= text.size(); ++length) {
        Parser parser(ZUTEXT(","), ZUTEXT(" "));
        EXPECT_TRUE(parser.ParseUpTo(length, text));
        // The points begin at 0, 6 and 12; the first that begins at or behind the length is not read.
        EXPECT_EQ(parser.Read().size(), (length + 5) / 6) << length;
    }
}

TEST(PointParser, ThirdNumberBehindTheLengthIsNotRead) {
    Parser parser(ZUTEXT(","), ZUTEXT(" "));
    EXPECT_TRUE(parser.ParseUpTo(3, "1,2,x"));
    EXPECT_EQ(parser.Read(), (Points{{1, 2}}));
    EXPECT_FALSE(parser.ParseUpTo(4, "1,2,x"));
}

TEST(PointParser, LengthBeyondTheTextLacksANumber) {
    Parser parser(ZUTEXT(","), ZUTEXT(" "));
    EXPECT_FALSE(parser.ParseUpTo(8, "1,2 3,4"));
    EXPECT_EQ(parser.Read(), kTwo);
    EXPECT_FALSE(parser.ParseUpTo(1, ""));
    EXPECT_FALSE(parser.ParseUpTo(9, "1,2 3,4 "));
    EXPECT_EQ(parser.Read(), kTwo);
}

TEST(PointParser, LengthForWhichNoHeapHasRoomFails) {
    Parser parser(ZUTEXT(","), ZUTEXT(" "));
    EXPECT_TRUE(parser.Parse("5,6"));
    constexpr uint64 kMost = std::numeric_limits<uint64>::max();
    EXPECT_FALSE(parser.ParseUpTo(kMost, "1,2 3,4"));
    EXPECT_EQ(parser.Read(), Points());
    EXPECT_FALSE(parser.ParseUpTo(kMost, "1,2 3,4", false));
    EXPECT_EQ(parser.Read(), Points());
    EXPECT_TRUE(parser.Parse("1,2 3,4", false));
    EXPECT_EQ(parser.Read(), kTwo);
}

TEST(PointParser, WithoutResetPointsAreAdded) {
    Parser parser(ZUTEXT(","), ZUTEXT(" "));
    EXPECT_TRUE(parser.Parse("1,2", false));
    EXPECT_TRUE(parser.Parse("3,4", false));
    EXPECT_EQ(parser.Read(), kTwo);
    EXPECT_FALSE(parser.Parse("5,6 7", false));
    EXPECT_EQ(parser.Read(), (Points{{1, 2}, {3, 4}, {5, 6}}));
    EXPECT_TRUE(parser.Parse("7,8"));
    EXPECT_EQ(parser.Read(), (Points{{7, 8}}));
    EXPECT_TRUE(parser.Parse(""));
    EXPECT_EQ(parser.Read(), Points());
}

TEST(PointParser, UnitInBothSetsEndsAPoint) {
    EXPECT_EQ(Read("1 2 3 4", ZUTEXT(" "), ZUTEXT(" ")), kTwo);
    EXPECT_EQ(Read("1 2 3 4 5 6", ZUTEXT(" ,"), ZUTEXT(" ")), (Points{{1, 2}, {3, 4}, {5, 6}}));
    EXPECT_EQ(Read("1 2,9 3 4,9", ZUTEXT(" ,"), ZUTEXT(" ")), kTwo) << "the comma lies in one set alone";
    EXPECT_EQ(Read("1 2 ,9 3 4 , 9", ZUTEXT(" ,"), ZUTEXT(" ")), kTwo);
}

TEST(PointParser, AddedWhitespaceIsBlankTabAndLineFeedInBothSets) {
    Parser parser(ZUTEXT(""), ZUTEXT(""), true);
    EXPECT_TRUE(parser.Parse("1 2 3 4"));
    EXPECT_EQ(parser.Read(), kTwo);
    EXPECT_TRUE(parser.Parse("\n\t 1\t2\n3 \t 4\n"));
    EXPECT_EQ(parser.Read(), kTwo);
    Parser commas(ZUTEXT(","), ZUTEXT(";"), true);
    EXPECT_TRUE(commas.Parse(" 1 , 2 ; 3,\n4\t;"));
    EXPECT_EQ(commas.Read(), kTwo);
    EXPECT_TRUE(commas.Parse("1 2 , 9 ; 3 4,9"));
    EXPECT_EQ(commas.Read(), kTwo);
}

// No separator: the reader of numbers passes white space itself, but nothing passes it behind the last number.
TEST(PointParser, OtherWhiteSpaceIsSkippedBeforeANumberAlone) {
    Parser parser(ZUTEXT(""), ZUTEXT(""), true);
    EXPECT_TRUE(parser.Parse("\r\v\f1\r2\r3\r4"));
    EXPECT_EQ(parser.Read(), kTwo);
    EXPECT_FALSE(parser.Parse("1 2\r"));
    EXPECT_EQ(parser.Read(), (Points{{1, 2}}));
    EXPECT_EQ(Read("1 2 3 4", ZUTEXT(","), ZUTEXT(";")), kTwo);
}

TEST(PointParser, SignTellsTwoNumbersApart) {
    EXPECT_EQ(Read("1-2-3+4"), (Points{{1, -2}, {-3, 4}}));
    EXPECT_EQ(Read("1.5.25 2,3"), (Points{{1.5, 0.25}, {2, 3}}));
}

TEST(PointParser, SeparatorsBeyondTheFirstUnits) {
    const wchar16 coordinate[] = {0x3001, 0xD83D, 0};
    const wchar16 point[] = {0xFF1B, 0x00B7, 0x0101, 0};
    const wchar16 text[] = {'1', 0x3001, '2', 0xFF1B, '3', 0xD83D, '4', 0x00B7,
                            '5', 0x3001, '6', 0x3001, '9', 0x0101, 0};
    Parser parser(coordinate, point);
    EXPECT_TRUE(parser.parser->ParsePoints(text, std::size(text) - 1, true));
    EXPECT_EQ(parser.Read(), (Points{{1, 2}, {3, 4}, {5, 6}}));
}

TEST(PointParser, KeepsCopiesOfTheSeparators) {
    wstring16 coordinate = ZUTEXT(",");
    wstring16 point = ZUTEXT(" ");
    Parser parser(coordinate.c_str(), point.c_str());
    coordinate[0] = 'x';
    point[0] = 'y';
    EXPECT_TRUE(parser.Parse("1,2 3,4"));
    EXPECT_EQ(parser.Read(), kTwo);
}

// Digits and signs are separators before they are parts of a number.
TEST(PointParser, SeparatorsThatNumbersAreMadeOf) {
    EXPECT_EQ(Read("5-5", ZUTEXT("-"), ZUTEXT(" ")), (Points{{5, 5}}));
    EXPECT_EQ(Read("001,2 03,4", ZUTEXT(","), ZUTEXT(" 0")), kTwo);
    EXPECT_EQ(Read("1,2,-9 3,4", ZUTEXT(",-"), ZUTEXT(" ")), kTwo);
}

TEST(PointParser, NullArgumentsAreRefused) {
    const std::unique_ptr<DPNTContainer> container(DPNTContainer::Create(1, 1));
    EXPECT_EQ(PointParserFactory::Create(nullptr, ZUTEXT(","), ZUTEXT(" "), true), nullptr);
    EXPECT_EQ(PointParserFactory::Create(container.get(), nullptr, ZUTEXT(" "), true), nullptr);
    EXPECT_EQ(PointParserFactory::Create(container.get(), ZUTEXT(","), nullptr, true), nullptr);
    Parser parser(ZUTEXT(","), ZUTEXT(" "));
    EXPECT_TRUE(parser.Parse("1,2"));
    EXPECT_FALSE(parser.parser->ParsePoints(nullptr, 0, true));
    EXPECT_FALSE(parser.parser->ParsePoints(nullptr, 5, false));
    EXPECT_EQ(parser.Read(), (Points{{1, 2}}));
}

TEST(PointParser, NumbersAreNeutralWhateverTheRuntimesLocale) {
    const std::string name = test::CommaLocale();
    const test::NumericLocale locale(name);
    if (name.empty() || !locale.IsSet()) GTEST_SKIP() << "this system's runtime has no locale with a decimal comma";
    EXPECT_EQ(Read("1.5,2.25 3.5d1,4"), (Points{{1.5, 2.25}, {35, 4}}));
    EXPECT_EQ(Read("1,5 2,5"), (Points{{1, 5}, {2, 5}}));
}

// An application's own container, which writes down what it is asked.
class Recorder : public DPNTContainer {
public:
    bool Append(const DPNT* points, uint64 count) override {
        log += "Append " + std::to_string(points->x) + " " + std::to_string(points->y) + " x" + std::to_string(count);
        return Answer();
    }
    bool Reset(uint64 wanted) override {
        log += "Reset " + std::to_string(wanted);
        return Answer();
    }
    bool Reserve(uint64 wanted) override {
        log += "Reserve " + std::to_string(wanted);
        return Answer();
    }
    DPNT* GetPoints(uint64& count) override {
        log += "GetPoints; ";
        count = 1000;
        return nullptr;
    }

    std::string log;
    bool answer = true;

private:
    bool Answer() {
        log += "; ";
        return answer;
    }
};

bool ParseInto(Recorder& recorder, const std::string& text, bool reset) {
    const std::unique_ptr<PointParserFactory> parser(
        PointParserFactory::Create(&recorder, ZUTEXT(","), ZUTEXT(" "), false));
    return parser->ParsePoints(Wide(text).c_str(), text.size(), reset);
}

TEST(PointParser, AsksForOnePointOnEvery20UnitsAndAppendsOneByOne) {
    Recorder recorder;
    const std::string text = "1,2 3,4" + std::string(52, ' ');
    EXPECT_TRUE(ParseInto(recorder, text, true));
    EXPECT_EQ(recorder.log, "Reset 2; Append 1.000000 2.000000 x1; Append 3.000000 4.000000 x1; ");
}

TEST(PointParser, AsksForRoomBesideWhatIsThere) {
    Recorder recorder;
    EXPECT_TRUE(ParseInto(recorder, "1,2" + std::string(57, ' '), false));
    EXPECT_EQ(recorder.log, "GetPoints; Reserve 1003; Append 1.000000 2.000000 x1; ");
}

TEST(PointParser, ReadsNothingWithoutRoom) {
    for (const bool reset : {true, false}) {
        Recorder recorder;
        recorder.answer = false;
        EXPECT_FALSE(ParseInto(recorder, "1,2 3,4", reset));
        EXPECT_EQ(recorder.log, reset ? "Reset 0; " : "GetPoints; Reserve 1000; ");
    }
}

TEST(PointParser, DoesNotLookAtWhetherAPointWasTaken) {
    class Refusing : public Recorder {
        bool Append(const DPNT* points, uint64 count) override {
            Recorder::Append(points, count);
            return false;
        }
    } recorder;
    EXPECT_TRUE(ParseInto(recorder, "1,2 3,4", true));
    EXPECT_EQ(recorder.log, "Reset 0; Append 1.000000 2.000000 x1; Append 3.000000 4.000000 x1; ");
}

// ---- Compared with the plain form

std::string RandomNumber(test::Random& random) {
    static const char* const kOdd[] = {"1e5",
                                       "2.5e-3",
                                       "1e999",
                                       ".5",
                                       "7.",
                                       "-.25",
                                       "3d2",
                                       "0x1F",
                                       "nan",
                                       "-inf",
                                       "123456789012345678901",
                                       "0.000000000000000000001"};
    if (random.OneIn(10)) return kOdd[random.Between(0, std::size(kOdd) - 1)];
    std::string text = random.OneIn(3) ? "-" : "";
    text += std::to_string(random.Between(0, 999));
    if (random.OneIn(2)) text += "." + std::to_string(random.Between(0, 999'999));
    return text;
}

// Numbers and separators, mostly in good order.
std::string RandomList(test::Random& random) {
    static const std::string kUnits = ",; \t\n\r|:-+.eE09x";
    std::string text;
    for (int64 pieces = random.Between(0, 30); pieces > 0; --pieces) {
        text += RandomNumber(random);
        do {
            text += random.OneIn(8) ? kUnits[static_cast<std::size_t>(random.Between(0, 15))]
                                    : kUnits[static_cast<std::size_t>(pieces % 3)];
        } while (random.OneIn(4));
    }
    return text;
}

TEST(PointParserProperty, AnswersAsThePlainFormDoes) {
    test::Random random;
    SCOPED_TRACE(random.About());
    static const wstring16 kSets[] = {ZUTEXT(","), ZUTEXT(" "), ZUTEXT(""), ZUTEXT(", "), ZUTEXT(";"), ZUTEXT("; |\n")};
    for (int texts = 0; texts < test::kRandomOperations / 50;) {
        const wstring16& coordinate = kSets[random.Between(0, 5)];
        const wstring16& point = kSets[random.Between(0, 5)];
        const bool addWhitespace = random.OneIn(3);
        Parser parser(coordinate.c_str(), point.c_str(), addWhitespace);
        PlainPointParser plain(coordinate, point, addWhitespace);
        for (int i = 0; i < 20; ++i, ++texts) {
            const std::string text = RandomList(random);
            const uint64 length = random.OneIn(3)
                                      ? static_cast<uint64>(random.Between(0, static_cast<int64>(text.size()) + 2))
                                      : text.size();
            const bool reset = random.OneIn(2);
            ASSERT_EQ(parser.ParseUpTo(length, text, reset), plain.ParsePoints(Wide(text).c_str(), length, reset))
                << text;
            ASSERT_EQ(parser.Read(), Points(plain.points.begin(), plain.points.end())) << text;
        }
    }
}

}  // namespace
}  // namespace point_parser_test
