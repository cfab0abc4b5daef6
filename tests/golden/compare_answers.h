// Compares what a layer answers with the checked-in answers of another system, and with the list of the differences
// that are meant.
#pragma once

#include <Utility/platform/platform.h>
#include <golden/locale_vectors.h>
#include <gtest/gtest.h>

#include <string>

namespace Torvo::test {

struct ComparedAnswers {
    LocaleAnswers vectors;
    LocaleDifferences differences;
    LocaleAnswers ours;

    std::string Ours(const LocaleAnswers::key_type& key) const {
        const auto found = ours.find(key);
        return found != ours.end() ? found->second : "no answer";
    }
};

inline void ExpectEveryAnswerIsTheSameOrListed(const ComparedAnswers& answers) {
    for (const auto& [key, expected] : answers.vectors) {
        const std::string answer = answers.Ours(key);
        if (answer == expected) continue;
        const auto listed = answers.differences.find(key);
        const std::string line = key.first + '\t' + key.second + '\t' + expected + '\t' + answer;
        if (listed == answers.differences.end()) {
            ADD_FAILURE() << "unlisted difference:\n" << line;
        } else {
            EXPECT_EQ(listed->second.expected, expected) << line;
            EXPECT_EQ(listed->second.ours, answer) << line;
        }
    }
}

inline void ExpectWhatIsListedDiffers(const ComparedAnswers& answers) {
    for (const auto& [key, difference] : answers.differences) {
        const auto vector = answers.vectors.find(key);
        ASSERT_NE(vector, answers.vectors.end()) << key.first << ' ' << key.second << " is not among the vectors";
        EXPECT_NE(answers.Ours(key), vector->second) << key.first << ' ' << key.second << " no longer differs";
        EXPECT_FALSE(difference.reason.empty()) << key.first << ' ' << key.second << " gives no reason";
    }
}

inline void ExpectNothingBeyondTheVectors(const ComparedAnswers& answers) {
    for (const auto& [key, answer] : answers.ours) {
        EXPECT_TRUE(answers.vectors.contains(key)) << key.first << ' ' << key.second << '=' << answer;
    }
}

// The version of Wine as in "wine-8.0"; empty on any other system.
inline std::string WineVersion() {
    const HINSTANCE ntdll = platform::GetModuleHandleW(ZUTEXT("ntdll.dll"));
    if (ntdll == nullptr) return {};
    using Version = const char* (*)();
    const auto version = reinterpret_cast<Version>(platform::GetProcAddress(ntdll, "wine_get_version"));
    return version != nullptr ? std::string("wine-") + version() : std::string();
}

// Whether vectors were made by the system that the test runs on.
inline bool AreOfThisSystem(const std::string& vectors) {
    const std::string version = WineVersion();
    return !version.empty() && vectors.starts_with("# Answers of " + version + ",");
}

inline void ExpectTheVectorsAreStillAnswered(const std::string& vectors, const std::string& probed) {
    const LocaleAnswers expected = ParseLocaleAnswers(vectors);
    const LocaleAnswers answers = ParseLocaleAnswers(probed);
    EXPECT_EQ(answers.size(), expected.size());
    for (const auto& [key, answer] : expected) {
        const auto found = answers.find(key);
        ASSERT_NE(found, answers.end()) << key.first << ' ' << key.second;
        EXPECT_EQ(found->second, answer) << key.first << ' ' << key.second;
    }
}

}  // namespace Torvo::test
