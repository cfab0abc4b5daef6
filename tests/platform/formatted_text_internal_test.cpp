#include <Utility/platform/formatted_text.h>
#include <golden/formatted_cases.h>
#include <gtest/gtest.h>
#include <support/fixture_path.h>
#include <support/numeric_locale.h>

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <initializer_list>
#include <iterator>
#include <limits>
#include <map>
#include <string>
#include <vector>

namespace formatted_text_internal_test {
namespace {

using namespace Torvo;

// A result and its text as the probe writes them.
std::string Line(int length, const wstring16& text) {
    std::string line = std::to_string(length) + ' ';
    for (const wchar16 unit : text) {
        char escaped[8];
        if (unit >= 0x20 && unit < 0x7F && unit != '\\') {
            line += static_cast<char>(unit);
        } else {
            std::snprintf(escaped, sizeof escaped, "\\%04X", static_cast<unsigned int>(unit));
            line += escaped;
        }
    }
    return line;
}

// The text of a format, printed with room to spare.
wstring16 Printed(const wchar16* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    wstring16 text;
    platform::FormatText(&text, format, arguments);
    va_end(arguments);
    return text;
}

std::vector<std::string> LinesOf(const std::string& name) {
    std::ifstream file(Torvo::test::SourcePath("tests/golden/" + name), std::ios::binary);
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);) lines.push_back(line);
    return lines;
}

// The answers that differ from Wine's on purpose, by line.
std::map<std::size_t, std::string> KnownDifferences() {
    std::map<std::size_t, std::string> differences;
    for (const std::string& line : LinesOf("formatted_differences.txt")) {
        if (line.starts_with('#')) continue;
        std::size_t used = 0;
        const std::size_t number = std::stoul(line, &used);
        differences[number] = line.substr(used + 1);
    }
    return differences;
}

TEST(FormattedText, IsWhatTheWindowsRuntimePrints) {
    const std::vector<std::string> vectors = LinesOf("formatted_vectors.txt");
    const std::map<std::size_t, std::string> differences = KnownDifferences();
    std::size_t line = 0;
    const auto check = [&](const wchar16* format, auto... arguments) {
        ++line;
        ASSERT_LE(line, vectors.size());
        const std::string& answer = vectors[line - 1];
        const auto difference = differences.find(line);
        const bool differs = difference != differences.end();
        if (differs) {
            EXPECT_NE(answer, difference->second) << "listed, but there is no difference: line " << line;
        }
        EXPECT_EQ(Line(platform::_scwprintf(format, arguments...), Printed(format, arguments...)),
                  differs ? difference->second : answer)
            << "line " << line << ", format " << Line(0, format);
    };
    test::EachFormattedCase(check);
    test::EachRandomNumberCase(check);
    EXPECT_EQ(line, vectors.size());
}

TEST(FormattedText, TakesNumbersOfEightBits) {
    EXPECT_EQ(Printed(ZUTEXT("%hhd %hhu %hhx"), 511, 511, 0x1234), ZUTEXT("-1 255 34"));
}

TEST(FormattedText, TakesLongDoubles) {
    EXPECT_EQ(Printed(ZUTEXT("%.3Lf %Lg"), 2.5L, 1e20L), ZUTEXT("2.500 1e+20"));
}

TEST(FormattedText, KeepsAUnitOfZero) {
    const wstring16 text = Printed(ZUTEXT("a%cb%hc"), 0, 0);
    EXPECT_EQ(text, wstring16(ZUTEXT("a\0b\0"), 4));
}

// A buffer of a given size inside guard units.
struct GuardedBuffer {
    explicit GuardedBuffer(std::size_t size) : units(size + 2, Guard), limit(size) {}
    wchar16* Data() { return units.data() + 1; }
    bool GuardsStand() const { return units.front() == Guard && units.back() == Guard; }
    static constexpr wchar16 Guard = 0xABCD;
    std::vector<wchar16> units;
    std::size_t limit;
};

TEST(FormattedText, IsCutToTheBufferAndAlwaysTerminated) {
    const wstring16 whole = ZUTEXT("12345 abc");
    for (std::size_t size = 1; size <= 12; ++size) {
        GuardedBuffer buffer(size);
        const int length = platform::swprintf(buffer.Data(), size, ZUTEXT("%d %s"), 12345, ZUTEXT("abc"));
        EXPECT_EQ(length, size > whole.size() ? static_cast<int>(whole.size()) : -1) << size;
        EXPECT_EQ(wstring16(buffer.Data()), whole.substr(0, size - 1)) << size;
        EXPECT_TRUE(buffer.GuardsStand()) << size;
    }
}

TEST(FormattedText, CutsEveryKindOfDirectiveToTheBuffer) {
    for (std::size_t size = 1; size < 80; ++size) {
        GuardedBuffer buffer(size);
        platform::swprintf(buffer.Data(), size, ZUTEXT("%05d|%-9s|%9hs|%c|%12.3e|%#o|%p|%.20f"), -5, ZUTEXT("ab"), "cd",
                           'x', -1.5, 8, nullptr, 0.1);
        EXPECT_TRUE(buffer.GuardsStand()) << size;
        EXPECT_EQ(wstring16(buffer.Data()).size(), size - 1);
    }
}

TEST(FormattedText, WithoutRoomForATerminatorWritesNothing) {
    wchar16 unit = 'x';
    EXPECT_EQ(platform::swprintf(&unit, 0, ZUTEXT("")), -1);
    EXPECT_EQ(platform::swprintf(&unit, 0, ZUTEXT("abc")), -1);
    EXPECT_EQ(unit, 'x');
}

TEST(FormattedText, RefusesWhatItDoesNotKnow) {
    int counted = 7;
    for (const wchar16* const format :
         {ZUTEXT("ab%n"), ZUTEXT("ab%hn"), ZUTEXT("ab%"), ZUTEXT("ab%5"), ZUTEXT("ab%-"), ZUTEXT("ab%."),
          ZUTEXT("ab%l"), ZUTEXT("ab%y"), ZUTEXT("ab%5%"), ZUTEXT("ab%1$d"), ZUTEXT("ab%Z"), ZUTEXT("ab%I"),
          ZUTEXT("ab%I6"), ZUTEXT("ab%99999999999d"), ZUTEXT("ab%.99999999999d"), ZUTEXT("ab%\u0431")}) {
        wchar16 buffer[32] = ZUTEXT("before");
        EXPECT_EQ(platform::swprintf(buffer, std::size(buffer), format, &counted), -1) << Line(0, format);
        EXPECT_EQ(buffer[0], 0) << Line(0, format);
        EXPECT_EQ(platform::_scwprintf(format, &counted), -1) << Line(0, format);
        EXPECT_EQ(Printed(format, &counted), ZUTEXT("")) << Line(0, format);
    }
    EXPECT_EQ(counted, 7);
}

TEST(FormattedText, CountsFieldsOfAnyWidthWithoutPrintingThem) {
    EXPECT_EQ(platform::_scwprintf(ZUTEXT("%2147483647d"), 1), 2147483647);
    EXPECT_EQ(platform::_scwprintf(ZUTEXT("%*d"), -2147483647, 1), 2147483647);
    EXPECT_EQ(platform::_scwprintf(ZUTEXT("%.2147483645f"), 1.0), 2147483647);
    EXPECT_EQ(platform::_scwprintf(ZUTEXT("%#.2147483646g"), 1.0), 2147483647);
    EXPECT_EQ(platform::_scwprintf(ZUTEXT("%.2147483647g"), 1.0), 1);
}

TEST(FormattedText, RefusesATextThatAnIntCannotCount) {
    wchar16 buffer[8] = ZUTEXT("before");
    EXPECT_EQ(platform::swprintf(buffer, std::size(buffer), ZUTEXT("x%2147483647d"), 1), -1);
    EXPECT_EQ(buffer[0], 0);
    EXPECT_EQ(platform::_scwprintf(ZUTEXT("%*d"), std::numeric_limits<int>::min(), 1), -1);
    EXPECT_EQ(platform::_scwprintf(ZUTEXT("%.2147483647f"), 1.0), -1);
}

TEST(FormattedText, PrintsEveryDigitOfANumber) {
    const wstring16 largest = Printed(ZUTEXT("%f"), std::numeric_limits<double>::max());
    EXPECT_EQ(largest.size(), 309u + 7);
    EXPECT_EQ(largest.substr(0, 17), ZUTEXT("17976931348623157"));
    const wstring16 smallest = Printed(ZUTEXT("%.1080f"), std::numeric_limits<double>::denorm_min());
    EXPECT_EQ(smallest.size(), 1082u);
    EXPECT_EQ(smallest.substr(2 + 1067), ZUTEXT("7265625000000"));
    EXPECT_EQ(Printed(ZUTEXT("%.1100e"), 1.5), ZUTEXT("1.5") + wstring16(1099, '0') + ZUTEXT("e+00"));
}

TEST(FormattedText, SizesItsOwnBufferForACallerWithoutALimit) {
    const wstring16 longText(5000, wchar16{'y'});
    EXPECT_EQ(Printed(ZUTEXT("<%s|%6000s>"), longText.c_str(), ZUTEXT("z")),
              ZUTEXT("<") + longText + ZUTEXT("|") + wstring16(5999, wchar16{' '}) + ZUTEXT("z>"));
}

// Sets a part of the runtime's locale for one test.
class RuntimeLocale {
public:
    RuntimeLocale(int part, std::initializer_list<const char*> names) : category(part) {
        former = std::setlocale(category, nullptr);
        for (const char* const name : names) {
            if (std::setlocale(category, name) != nullptr) {
                isSet = true;
                return;
            }
        }
    }
    ~RuntimeLocale() { std::setlocale(category, former.c_str()); }
    RuntimeLocale(const RuntimeLocale&) = delete;
    RuntimeLocale& operator=(const RuntimeLocale&) = delete;
    bool IsSet() const { return isSet; }

private:
    const int category;
    std::string former;
    bool isSet = false;
};

TEST(FormattedText, HasTheDecimalMarkOfTheRuntimesNumericLocale) {
    const Torvo::test::NumericLocale german(Torvo::test::CommaLocale());
    if (!german.IsSet()) GTEST_SKIP() << "the runtime has no locale with a decimal comma";
    EXPECT_EQ(Printed(ZUTEXT("%.2f|%e|%#.0f|%g|%a|%d"), 1234.5, 0.25, 2.0, 3.0, 1.5, 1234),
              ZUTEXT("1234,50|2,500000e-01|2,|3|0x1,8000000000000p+0|1234"));
}

TEST(FormattedText, ReadsBytesInTheRuntimesCharacterLocale) {
    const RuntimeLocale utf8(LC_CTYPE, {"C.UTF-8", ".UTF-8", "de_DE.UTF-8"});
    if (!utf8.IsSet() || MB_CUR_MAX < 4) GTEST_SKIP() << "no locale of UTF-8 is installed";
    EXPECT_EQ(Printed(ZUTEXT("[%hs]"), "\xC5\xBC\xC3\xB3w \xF0\x9D\x84\x9E"), ZUTEXT("[\u017C\u00F3w \U0001D11E]"));
    EXPECT_EQ(Printed(ZUTEXT("[%5.2hs]"), "\xC5\xBC\xC3\xB3w"), ZUTEXT("[   \u017C\u00F3]"));
    EXPECT_EQ(platform::_scwprintf(ZUTEXT("%hs"), "a\xFF"), -1);
    EXPECT_EQ(platform::_scwprintf(ZUTEXT("%hs"), "a\xC5"), -1);
    EXPECT_EQ(platform::_scwprintf(ZUTEXT("%hc"), 0xC5), -1);
}

TEST(FormattedText, TakesBytesAsUnitsInTheCLocale) {
    const RuntimeLocale plain(LC_CTYPE, {"C"});
    EXPECT_EQ(Printed(ZUTEXT("[%hs%hc]"), "\xE9\x80", 0xFF), ZUTEXT("[\u00E9\u0080\u00FF]"));
}

}  // namespace
}  // namespace formatted_text_internal_test
