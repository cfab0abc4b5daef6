// Reads the checked-in answers about locales and the list of the places where the Linux layer answers otherwise.
#pragma once

#include <support/fixture_path.h>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <utility>

namespace Torvo::test {

// By section and key.
using LocaleAnswers = std::map<std::pair<std::string, std::string>, std::string>;

inline std::string ReadTextFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

// The lines of a probe's output; a comment begins with '#'.
inline LocaleAnswers ParseLocaleAnswers(const std::string& text) {
    LocaleAnswers answers;
    std::istringstream lines(text);
    std::string section;
    for (std::string line; std::getline(lines, line);) {
        if (line.empty() || line[0] == '#') continue;
        if (line[0] == '[') {
            section = line.substr(1, line.size() - 2);
            continue;
        }
        const auto equals = line.find('=');
        answers[{section, line.substr(0, equals)}] = line.substr(equals + 1);
    }
    return answers;
}

// One listed difference.
struct LocaleDifference {
    std::string expected;  // what the vectors say
    std::string ours;
    std::string reason;
};
using LocaleDifferences = std::map<std::pair<std::string, std::string>, LocaleDifference>;

// Lines of section, key, answer of the vectors, our answer and reason, with tabs between them.
inline LocaleDifferences ParseLocaleDifferences(const std::string& text) {
    LocaleDifferences differences;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        if (line.empty() || line[0] == '#') continue;
        std::istringstream fields(line);
        std::string section;
        std::string key;
        LocaleDifference difference;
        std::getline(fields, section, '\t');
        std::getline(fields, key, '\t');
        std::getline(fields, difference.expected, '\t');
        std::getline(fields, difference.ours, '\t');
        std::getline(fields, difference.reason, '\t');
        differences[{section, key}] = difference;
    }
    return differences;
}

inline std::string LocaleVectorsText() {
    return ReadTextFile(SourcePath("tests/golden/locale_vectors.txt"));
}

}  // namespace Torvo::test
