// Times of day in the locales of the checked-in vectors, which are another system's answers: what zuTime writes is what
// is answered there, and what it writes it can read.
#include <Utility/platform/host.h>
#include <Utility/times.h>
#include <golden/compare_answers.h>
#include <golden/probe_writer.h>
#include <gtest/gtest.h>
#include <support/fixture_path.h>

#include <set>
#include <vector>

#include "support/times.h"

namespace time_locales_internal_test {
namespace {

using namespace Torvo;
using namespace Torvo::test;

// A time that the vectors have, under the name that they give it.
struct VectorTime {
    int64 ticks;
    const char* name;
};
constexpr VectorTime VectorTimes[] = {
    {13 * HourTicks + 5 * MinuteTicks + 9 * SecondTicks + 2'500'000, "13.5.9.250"},
    {0, "0.0.0.0"},
    {23 * HourTicks + 59 * MinuteTicks + 59 * SecondTicks + 9'990'000, "23.59.59.999"},
};

// The pictures that zuTime passes on as they are.
constexpr const wchar16* VectorPictures[] = {nullptr, ZUTEXT("h:mm:ss tt"), ZUTEXT("H:m")};

class TimeLocales : public testing::Test, private ProbeWriter {
protected:
    ~TimeLocales() override { platform::SetThreadLocale(former); }

    static std::vector<uint32> Locales() {
        std::set<std::string> sections;
        for (const auto& [key, answer] : Vectors()) sections.insert(key.first);
        std::vector<uint32> locales;
        for (const std::string& section : sections) {
            const bool isLocale = section.find_first_not_of("0123456789ABCDEF") == std::string::npos;
            if (isLocale) locales.push_back(static_cast<uint32>(std::stoul(section, nullptr, 16)));
        }
        return locales;
    }

    // What the vectors say of a time, with the digits of its fraction in place of each "f": the mark of the Swedish
    // morning has one.
    static std::string Expected(uint32 locale, const VectorTime& time, const wchar16* picture) {
        std::string text = Answer(locale, time, picture);
        std::string digits = std::to_string(time.ticks % SecondTicks);
        digits.insert(0, 7 - digits.size(), '0');
        std::size_t next = 0;
        for (char& unit : text) {
            if (unit == 'f') unit = digits.at(next++);
        }
        return text;
    }

    // The vectors' line, or what this system answers instead for a listed reason.
    static std::string Answer(uint32 locale, const VectorTime& time, const wchar16* picture) {
        const std::string key =
            Words({Hex(locale), "time", time.name, picture != nullptr ? Quoted(picture) : "no picture", "flags 0000"});
        const auto difference = Differences().find({Hex(locale), key});
        if (difference != Differences().end() && !AreOfThisSystem(VectorsText())) return difference->second.ours;
        const auto answer = Vectors().find({Hex(locale), key});
        return answer != Vectors().end() ? answer->second : "no such line: " + key;
    }

    static std::string Written(const zuTime& time, const wchar16* picture) {
        wchar16 text[100];
        return time.ToString(text, 100, picture) ? Quoted(text) : "refused";
    }

    static wstring16 OwnText(const zuTime& time) {
        wchar16 text[100];
        return time.ToString(text, 100, nullptr) ? text : wstring16();
    }

    static std::string Name(uint32 locale) { return Hex(locale); }

private:
    static const std::string& VectorsText() {
        static const std::string text = ReadTextFile(SourcePath("tests/golden/date_format_vectors.txt"));
        return text;
    }
    static const LocaleAnswers& Vectors() {
        static const LocaleAnswers answers = ParseLocaleAnswers(VectorsText());
        return answers;
    }
    static const LocaleDifferences& Differences() {
        static const LocaleDifferences differences =
            ParseLocaleDifferences(ReadTextFile(SourcePath("tests/golden/date_format_differences.txt")));
        return differences;
    }

    const uint32 former = platform::GetThreadLocale();
};

TEST_F(TimeLocales, AreWrittenAsTheVectorsHaveThem) {
    EXPECT_GE(Locales().size(), 12u);
    for (const uint32 locale : Locales()) {
        ASSERT_TRUE(platform::SetThreadLocale(locale)) << Name(locale);
        for (const VectorTime& vectorTime : VectorTimes) {
            const Time time(CreateTime(vectorTime.ticks));
            for (const wchar16* const picture : VectorPictures) {
                EXPECT_EQ(Written(*time, picture), Expected(locale, vectorTime, picture)) << Name(locale);
            }
        }
    }
}

// All but those that write words behind the numbers.
TEST_F(TimeLocales, ReadTheirOwnText) {
    constexpr uint32 Bulgarian = 0x0402;
    constexpr uint32 CanadianFrench = 0x0C0C;
    for (const uint32 locale : Locales()) {
        if (locale == Bulgarian || locale == CanadianFrench) continue;
        ASSERT_TRUE(platform::SetThreadLocale(locale)) << Name(locale);
        for (const VectorTime& vectorTime : VectorTimes) {
            const Time time(CreateTime(vectorTime.ticks / SecondTicks * SecondTicks));
            const Time read(CreateTimeFromString(OwnText(*time).c_str()));
            EXPECT_EQ(Told(read), Told(time)) << Name(locale) << " " << Written(*time, nullptr);
        }
    }
}

}  // namespace
}  // namespace time_locales_internal_test
