// What the platform layer says of characters, paths and numbers, as lines of text. The program beside this file writes
// the lines on Windows; the tests produce the same lines on every system and compare.
#pragma once

#include <Utility/platform/runtime.h>
#include <Utility/platform/text.h>

#include <cstdio>
#include <functional>
#include <sstream>
#include <string>
#include <vector>

namespace Torvo::test {

using Lines = std::vector<std::string>;

inline std::string Hex(unsigned value) {
    char digits[16];
    std::snprintf(digits, sizeof digits, "%04X", value);
    return digits;
}

// Text as it stands in the vectors: graphic ASCII as itself, everything else and the backslash by its number.
inline std::string Shown(const wchar16* text) {
    std::string shown = "[";
    for (; *text != 0; ++text) {
        const unsigned unit = *text;
        if (unit > 0x20 && unit < 0x7F && unit != '\\') {
            shown += static_cast<char>(unit);
        } else {
            shown += '\\';
            shown += Hex(unit);
        }
    }
    return shown + "]";
}

// All units as runs: "name first-last/stride value". Units with the value 0 are left out.
inline void AddUnits(Lines& lines, const std::string& name, const std::function<int(wchar16)>& valueOf) {
    struct Run {
        unsigned first, last, stride;
        int value;
    };
    std::vector<Run> runs;
    for (unsigned unit = 1; unit <= 0xFFFF; ++unit) {
        const int value = valueOf(static_cast<wchar16>(unit));
        if (value == 0) continue;
        Run* const run = runs.empty() ? nullptr : &runs.back();
        const unsigned step = run != nullptr ? unit - run->last : 0;
        const bool extends =
            run != nullptr && run->value == value && (run->first == run->last ? step <= 2 : step == run->stride);
        if (extends) {
            run->last = unit;
            run->stride = step;
        } else {
            runs.push_back({unit, unit, 1, value});
        }
    }
    for (const Run& run : runs) {
        lines.push_back(name + " " + Hex(run.first) + "-" + Hex(run.last) + "/" + std::to_string(run.stride) + " " +
                        std::to_string(run.value));
    }
}

// What _wtoi makes of a unit behind the digit 1: its value as a digit plus one, or 0.
inline int DigitPlusOne(wchar16 unit) {
    const wchar16 text[] = {'1', unit, 0};
    const int value = platform::_wtoi(text);
    return value >= 10 ? value - 10 + 1 : 0;
}

// Whether _wtoi skips a unit as white space: it is skipped twice, which a sign is not.
inline int IsSkipped(wchar16 unit) {
    const wchar16 text[] = {unit, unit, '1', 0};
    return DigitPlusOne(unit) == 0 && platform::_wtoi(text) == 1 ? 1 : 0;
}

// Case and class of every unit.
inline Lines UnitLines() {
    Lines lines;
    AddUnits(lines, "CharLowerW", [](wchar16 unit) { return platform::CharLowerW(unit) - unit; });
    AddUnits(lines, "CharUpperW", [](wchar16 unit) { return platform::CharUpperW(unit) - unit; });
    AddUnits(lines, "IsCharLowerW", [](wchar16 unit) { return platform::IsCharLowerW(unit) ? 1 : 0; });
    AddUnits(lines, "IsCharUpperW", [](wchar16 unit) { return platform::IsCharUpperW(unit) ? 1 : 0; });
    AddUnits(lines, "iswalpha", [](wchar16 unit) { return platform::iswalpha(unit) ? 1 : 0; });
    AddUnits(lines, "iswalnum", [](wchar16 unit) { return platform::iswalnum(unit) ? 1 : 0; });
    AddUnits(lines, "iswprint", [](wchar16 unit) { return platform::iswprint(unit) ? 1 : 0; });
    AddUnits(lines, "digit", DigitPlusOne);
    AddUnits(lines, "white", IsSkipped);
    return lines;
}

// The positions that steps through a text reach, forward from its start and back from its end.
inline void AddSteps(Lines& lines, const wchar16* text) {
    const wchar16* const end = text + platform::wcslen(text);
    std::ostringstream next;
    next << "CharNextW " << Shown(text);
    for (const wchar16* p = text; *p != 0;) next << ' ' << (p = platform::CharNextW(p)) - text;
    next << " end " << platform::CharNextW(end) - text;
    lines.push_back(next.str());
    std::ostringstream previous;
    previous << "CharPrevW " << Shown(text);
    for (const wchar16* p = end; p > text;) previous << ' ' << (p = platform::CharPrevW(text, p)) - text;
    previous << " start " << platform::CharPrevW(text, text) - text;
    lines.push_back(previous.str());
}

inline void AddSplit(Lines& lines, const std::basic_string<wchar16>& path) {
    platform::PathParts parts;
    platform::_wsplitpath(path.c_str(), &parts);
    lines.push_back(std::string("_wsplitpath ") + Shown(path.c_str()) + " " + Shown(parts.drive) + " " +
                    Shown(parts.directory) + " " + Shown(parts.name) + " " + Shown(parts.extension));
}

inline void AddJoin(Lines& lines, std::size_t size, const wchar16* drive, const wchar16* directory, const wchar16* name,
                    const wchar16* extension) {
    const auto shown = [](const wchar16* text) { return text != nullptr ? Shown(text) : std::string("null"); };
    wchar16 path[600];
    const bool fits = platform::_wmakepath(path, size, drive, directory, name, extension);
    lines.push_back(std::string("_wmakepath ") + std::to_string(size) + " " + shown(drive) + " " + shown(directory) +
                    " " + shown(name) + " " + shown(extension) + (fits ? " fits " : " fails ") + Shown(path));
}

inline void AddNumber(Lines& lines, const wchar16* text) {
    lines.push_back(std::string("_wtoi ") + Shown(text) + " " + std::to_string(platform::_wtoi(text)));
}

inline void AddTokens(Lines& lines, std::basic_string<wchar16> text, const wchar16* delimiters) {
    std::string line = std::string("wcstok ") + Shown(text.c_str()) + " " + Shown(delimiters);
    for (const wchar16* token = platform::wcstok(text.data(), delimiters); token != nullptr;
         token = platform::wcstok(nullptr, delimiters)) {
        line += ' ';
        line += Shown(token);
    }
    lines.push_back(line);
}

// How the runtime orders two texts, ignoring case, while its character locale is "C".
inline void AddComparison(Lines& lines, const wchar16* a, const wchar16* b) {
    const auto sign = [](int value) { return std::to_string((value > 0) - (value < 0)); };
    lines.push_back(std::string("compare ") + Shown(a) + " " + Shown(b) + " _wcsicmp " +
                    sign(platform::_wcsicmp(a, b)) + " _wcsnicmp 2 " + sign(platform::_wcsnicmp(a, b, 2)) +
                    " wcsncmp 2 " + sign(platform::wcsncmp(a, b, 2)) + " wcsncmp 0 " +
                    sign(platform::wcsncmp(a, b, 0)));
}

// Calls on texts.
inline Lines CallLines() {
    using Text = std::basic_string<wchar16>;
    Lines lines;
    for (const wchar16* text :
         {ZUTEXT(""), ZUTEXT("abc"), ZUTEXT("e\u0301x"), ZUTEXT("e\u0301\u0323x"), ZUTEXT("\u0301x"),
          ZUTEXT("\u0301\u0302"), ZUTEXT("a\U0001F600b"), ZUTEXT("\U0001F600"), ZUTEXT("\U0001D15F\U0001D165x"),
          ZUTEXT("\u304B\u3099\u304D"), ZUTEXT("\u0915\u093E\u0916"), ZUTEXT("\u2764\uFE0Fx"), ZUTEXT("\uAC00\uB098"),
          ZUTEXT("a\u200Db"), ZUTEXT("\u05E9\u05C1\u05BC"), ZUTEXT("\r\n"), ZUTEXT("A\u20DDz")}) {
        AddSteps(lines, text);
    }
    // Unpaired surrogates, which a literal cannot hold.
    AddSteps(lines, Text{0xD83D, 'a'}.c_str());
    AddSteps(lines, Text{0xDE00, 'a'}.c_str());
    AddSteps(lines, Text{0xD83D, 0xD83D, 0xDE00}.c_str());
    AddSteps(lines, Text{0xD83D, 0x0301}.c_str());

    for (const wchar16* path : {ZUTEXT("c:\\a\\b.txt"),
                                ZUTEXT("a"),
                                ZUTEXT(""),
                                ZUTEXT("c:"),
                                ZUTEXT("c:a.b.c"),
                                ZUTEXT("\\\\srv\\share\\x.y"),
                                ZUTEXT("/a/b/.c"),
                                ZUTEXT("\\\\?\\c:\\a\\b.c"),
                                ZUTEXT("a/b\\c.d"),
                                ZUTEXT(".."),
                                ZUTEXT("a.."),
                                ZUTEXT("1:x"),
                                ZUTEXT("ab:x"),
                                ZUTEXT(":x"),
                                ZUTEXT("::x"),
                                ZUTEXT("/"),
                                ZUTEXT("c:/"),
                                ZUTEXT("a.b/c"),
                                ZUTEXT("\\\\?\\"),
                                ZUTEXT("c:\\a.b\\"),
                                ZUTEXT("."),
                                ZUTEXT("a b\\c d.e f"),
                                ZUTEXT("\u00E9:\\\u3042.\u3044")}) {
        AddSplit(lines, path);
    }
    for (const std::size_t length : {254, 255, 256, 257}) {
        AddSplit(lines, ZUTEXT("c:\\") + Text(length, 'n') + ZUTEXT(".t"));
        AddSplit(lines, Text(length - 1, 'd') + ZUTEXT("\\n.t"));
        AddSplit(lines, ZUTEXT("n.") + Text(length - 1, 'e'));
    }

    AddJoin(lines, 300, ZUTEXT("c"), ZUTEXT("a"), ZUTEXT("b"), ZUTEXT("t"));
    AddJoin(lines, 300, ZUTEXT("c:"), ZUTEXT("\\a\\"), ZUTEXT("b"), ZUTEXT(".t"));
    AddJoin(lines, 300, ZUTEXT("cd"), ZUTEXT("a"), nullptr, ZUTEXT("t"));
    AddJoin(lines, 300, ZUTEXT("c"), nullptr, ZUTEXT("n"), nullptr);
    AddJoin(lines, 300, ZUTEXT(""), ZUTEXT("a/"), ZUTEXT("b"), ZUTEXT(""));
    AddJoin(lines, 300, ZUTEXT(""), ZUTEXT(""), ZUTEXT("b"), ZUTEXT("t"));
    AddJoin(lines, 300, nullptr, ZUTEXT("a\\b"), ZUTEXT("n.x"), ZUTEXT(".y"));
    AddJoin(lines, 300, nullptr, ZUTEXT("/"), nullptr, nullptr);
    AddJoin(lines, 300, nullptr, nullptr, nullptr, ZUTEXT("."));
    AddJoin(lines, 300, nullptr, nullptr, nullptr, nullptr);
    for (std::size_t size = 1; size <= 10; ++size) {
        AddJoin(lines, size, ZUTEXT("c"), ZUTEXT("a"), ZUTEXT("b"), ZUTEXT("t"));
    }

    for (const wchar16* text : {ZUTEXT("0"),
                                ZUTEXT("2147483647"),
                                ZUTEXT("2147483648"),
                                ZUTEXT("-2147483648"),
                                ZUTEXT("-2147483649"),
                                ZUTEXT("99999999999999999999999999"),
                                ZUTEXT("-99999999999999999999999999"),
                                ZUTEXT("  +12x"),
                                ZUTEXT("- 5"),
                                ZUTEXT("+-5"),
                                ZUTEXT("--5"),
                                ZUTEXT("0x10"),
                                ZUTEXT(""),
                                ZUTEXT("x"),
                                ZUTEXT("-"),
                                ZUTEXT("007"),
                                ZUTEXT("\u0661\u0662"),
                                ZUTEXT("1\uFF12"),
                                ZUTEXT("\u00A05"),
                                ZUTEXT("\v\f\n5"),
                                ZUTEXT("\u30005"),
                                ZUTEXT("1,000"),
                                ZUTEXT("1252")}) {
        AddNumber(lines, text);
    }

    AddTokens(lines, ZUTEXT(",a,,b;c,"), ZUTEXT(",;"));
    AddTokens(lines, ZUTEXT("abc"), ZUTEXT(","));
    AddTokens(lines, ZUTEXT(",,,"), ZUTEXT(","));
    AddTokens(lines, ZUTEXT(""), ZUTEXT(","));
    AddTokens(lines, ZUTEXT("a b"), ZUTEXT(""));
    AddTokens(lines, ZUTEXT("a\u3042b\u3044c"), ZUTEXT("\u3042\u3044"));

    AddComparison(lines, ZUTEXT("abc"), ZUTEXT("ABD"));
    AddComparison(lines, ZUTEXT("abc"), ZUTEXT("AB"));
    AddComparison(lines, ZUTEXT(""), ZUTEXT(""));
    AddComparison(lines, ZUTEXT(""), ZUTEXT("a"));
    AddComparison(lines, ZUTEXT("_"), ZUTEXT("A"));
    AddComparison(lines, ZUTEXT("["), ZUTEXT("a"));
    AddComparison(lines, ZUTEXT("["), ZUTEXT("Z"));
    AddComparison(lines, ZUTEXT("@"), ZUTEXT("`"));
    AddComparison(lines, ZUTEXT("\u00E9"), ZUTEXT("\u00C9"));
    AddComparison(lines, ZUTEXT("\u0430"), ZUTEXT("\u0410"));
    AddComparison(lines, ZUTEXT("\uFF41"), ZUTEXT("\uFF21"));
    AddComparison(lines, ZUTEXT("\uFFFF"), ZUTEXT("a"));
    return lines;
}

}  // namespace Torvo::test
