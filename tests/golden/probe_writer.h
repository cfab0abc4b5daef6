// How a probe writes its answers down: lines of `key=answer`, in sections that a line in brackets starts. Units that an
// editor would not show are written as \uhhhh.
#pragma once

#include <Utility/platform/platform.h>

#include <cstdio>
#include <initializer_list>
#include <string>
#include <utility>

namespace Torvo::test {

class ProbeWriter {
protected:
    static constexpr wchar16 Untouched = 0xABCD;

    void Fill() {
        for (wchar16& unit : buffer) unit = Untouched;
    }
    int Written() const {
        int count = 0;
        for (const wchar16 unit : buffer) count += unit != Untouched ? 1 : 0;
        return count;
    }

    void Line(const std::string& key, const std::string& answer) {
        out += key;
        out += '=';
        out += answer;
        out += '\n';
    }

    static std::string Words(std::initializer_list<std::string> words) {
        std::string line;
        for (const std::string& word : words) {
            if (!line.empty()) line += ' ';
            line += word;
        }
        return line;
    }

    static std::string Quoted(const wchar16* text) {
        std::string quoted = Text(text);
        quoted.insert(quoted.begin(), '"');
        quoted.push_back('"');
        return quoted;
    }

    static std::string Error() {
        std::string text = std::to_string(platform::GetLastError());
        text.insert(text.begin(), '!');
        return text;
    }
    static std::string Result(int result) { return result != 0 ? std::to_string(result) : Words({"0", Error()}); }

    static std::string Hex(uint32 number) {
        char text[16];
        std::snprintf(text, sizeof text, "%04X", static_cast<unsigned>(number));
        return text;
    }

    // UTF-8, and what an editor would not show as \uhhhh.
    static std::string Text(const wchar16* text) {
        std::string bytes;
        for (; *text != 0; ++text) {
            const unsigned unit = *text;
            char piece[16];
            if (unit < 0x80) {
                bytes += static_cast<char>(unit);
            } else if (IsInvisible(unit)) {
                std::snprintf(piece, sizeof piece, "\\u%04X", unit);
                bytes += piece;
            } else {
                AppendUtf8(bytes, unit);
            }
        }
        return bytes;
    }
    static bool IsInvisible(unsigned unit) {
        return unit == 0xA0 || unit == 0xAD || (unit >= 0x2000 && unit <= 0x200F) ||
               (unit >= 0x2028 && unit <= 0x202F) || unit == 0x061C || unit == 0x180E || unit == 0x3000 ||
               unit == 0xFEFF || (unit >= 0xD800 && unit < 0xE000);
    }
    static void AppendUtf8(std::string& bytes, unsigned unit) {
        if (unit < 0x800) {
            bytes += static_cast<char>(0xC0 | unit >> 6);
        } else {
            bytes += static_cast<char>(0xE0 | unit >> 12);
            bytes += static_cast<char>(0x80 | (unit >> 6 & 0x3F));
        }
        bytes += static_cast<char>(0x80 | (unit & 0x3F));
    }

    wchar16 buffer[400];
    std::string out;
};

}  // namespace Torvo::test
