// Asks the platform layer about code pages and writes down what it answers, as text. The same questions are put in two
// places: in a program for Windows, whose output is the checked-in file code_page_vectors.txt, and in a test, which
// compares this build's answers with that file line by line. docs/code_pages.md explains the lines.
#pragma once

#include <Utility/platform/text.h>
#include <Utility/platform/threads.h>

#include <array>
#include <cstdio>
#include <cstring>
#include <functional>
#include <string>
#include <vector>

namespace code_page_probe {

using namespace Torvo;

using Line = std::function<void(const std::string&)>;
using Units = std::vector<wchar16>;

inline constexpr uint32 SinglePages[] = {28591, 28592, 28593, 28594, 28595, 28596, 28597, 28598, 28599,
                                         1250,  1251,  1252,  1253,  1254,  1255,  1256,  1257,  1258,
                                         874,   437,   720,   737,   775,   850,   852,   855,   857,
                                         860,   861,   862,   863,   864,   865,   866,   869,   20127};
inline constexpr uint32 DoublePages[] = {932, 936, 949, 950};
inline constexpr uint32 Utf8 = 65001;
inline constexpr uint32 ErrInvalidUnits = 0x80;  // WC_ERR_INVALID_CHARS

inline std::string Format(const char* pattern, auto... values) {
    char text[200];
    std::snprintf(text, sizeof text, pattern, values...);
    return text;
}

// FNV-1a, 64 bits: stands for answers that are too many to be listed.
class Digest {
public:
    void Add(const void* data, std::size_t size) {
        for (const auto* byte = static_cast<const unsigned char*>(data); size != 0; ++byte, --size) {
            value_ = (value_ ^ *byte) * 0x100000001B3u;
        }
    }
    void Add(int value) { Add(&value, sizeof value); }
    std::string Text() const { return Format("%016llx", static_cast<unsigned long long>(value_)); }

private:
    uint64 value_ = 0xCBF29CE484222325u;
};

// ---- whole pages ----

struct ToUnits {
    int count;
    wchar16 units[4];
    bool valid;  // accepted under MB_ERR_INVALID_CHARS
};

inline ToUnits Decode(uint32 page, const char* bytes, int size) {
    ToUnits answer{};
    answer.count = platform::MultiByteToWideChar(page, 0, bytes, size, answer.units, 4);
    wchar16 strict[4];
    answer.valid = platform::MultiByteToWideChar(page, MB_ERR_INVALID_CHARS, bytes, size, strict, 4) != 0;
    return answer;
}

struct ToBytes {
    int count;
    unsigned char bytes[4];
    bool usedDefault;
    int Code() const { return count == 1 ? bytes[0] : count == 2 ? bytes[0] << 8 | bytes[1] : -1; }
};

inline ToBytes Encode(uint32 page, uint32 flags, const wchar16* units, int size, const char* defaultChar) {
    ToBytes answer{};
    char bytes[4] = {};
    answer.count = platform::WideCharToMultiByte(page, flags, units, size, bytes, 4, defaultChar, &answer.usedDefault);
    std::memcpy(answer.bytes, bytes, 4);
    return answer;
}

// A row of units: four hexadecimal digits each, (first+count) for ascending runs, .... for a refused code that becomes
// the page's default unit and !unit for one that becomes something else.
class RowWriter {
public:
    explicit RowWriter(wchar16 defaultUnit) : defaultUnit_(defaultUnit) {}
    void Add(const ToUnits& answer) {
        if (answer.count == 1 && answer.valid) {
            AddUnit(answer.units[0]);
            return;
        }
        FlushRun();
        if (answer.count == 1 && answer.units[0] == defaultUnit_) {
            ++gap_;
            return;
        }
        FlushGap();
        text_ += answer.count == 1 ? Format("!%04x", answer.units[0])
                                   : Format("<%d %04x %04x>", answer.count, answer.units[0], answer.units[1]);
    }
    std::string Text() {
        FlushGap();
        FlushRun();
        return text_;
    }

private:
    void AddUnit(int unit) {
        FlushGap();
        if (runLength_ != 0 && unit == runStart_ + runLength_) {
            ++runLength_;
            return;
        }
        FlushRun();
        runStart_ = unit;
        runLength_ = 1;
    }
    void FlushGap() {
        if (gap_ > 2) text_ += Format("(.+%d)", gap_);
        if (gap_ <= 2) text_ += std::string(static_cast<std::size_t>(gap_) * 4, '.');
        gap_ = 0;
    }
    void FlushRun() {
        if (runLength_ > 2) text_ += Format("(%04x+%d)", runStart_, runLength_);
        for (int i = 0; runLength_ <= 2 && i < runLength_; ++i) text_ += Format("%04x", runStart_ + i);
        runLength_ = 0;
    }

    wchar16 defaultUnit_;
    std::string text_;
    int runStart_ = 0;
    int runLength_ = 0;
    int gap_ = 0;
};

inline std::string LeadBytes(uint32 page) {
    std::string text;
    for (int byte = 0; byte < 256; ++byte) {
        if (!platform::IsDBCSLeadByteEx(page, static_cast<uint8>(byte))) continue;
        const int first = byte;
        while (byte < 255 && platform::IsDBCSLeadByteEx(page, static_cast<uint8>(byte + 1))) ++byte;
        text += Format(" %02x-%02x", first, byte);
    }
    return text.empty() ? " none" : text;
}

// What a lead byte at the end becomes, and with it every pair that is none.
inline wchar16 DefaultUnit(uint32 page) {
    for (int byte = 0; byte < 256; ++byte) {
        const char lonely = static_cast<char>(byte);
        if (platform::IsDBCSLeadByteEx(page, static_cast<uint8>(byte))) return Decode(page, &lonely, 1).units[0];
    }
    return '?';
}

// Bytes to units; fills `codes` with the lowest code of each unit.
inline void WriteForward(uint32 page, const Line& line, std::vector<int>& codes) {
    const wchar16 defaultUnit = DefaultUnit(page);
    const auto note = [&](const ToUnits& answer, int code) {
        if (answer.count == 1 && answer.valid && codes[answer.units[0]] < 0) codes[answer.units[0]] = code;
    };
    RowWriter single(defaultUnit);
    for (int byte = 0; byte < 256; ++byte) {
        const char bytes[] = {static_cast<char>(byte)};
        const ToUnits answer = Decode(page, bytes, 1);
        single.Add(answer);
        note(answer, byte);
    }
    line("bytes " + single.Text());
    for (int lead = 0; lead < 256; ++lead) {
        if (!platform::IsDBCSLeadByteEx(page, static_cast<uint8>(lead))) continue;
        RowWriter row(defaultUnit);
        for (int trail = 0; trail < 256; ++trail) {
            const char bytes[] = {static_cast<char>(lead), static_cast<char>(trail)};
            const ToUnits answer = Decode(page, bytes, 2);
            row.Add(answer);
            note(answer, lead << 8 | trail);
        }
        line(Format("lead %02x ", lead) + row.Text());
    }
}

// Units whose bytes are not the lowest code that leads to them: `unit=code` for an exact answer, `unit~code` for one
// that WC_NO_BEST_FIT_CHARS refuses, `unit?` for none. (first-last...) where unit and code ascend together.
inline void WriteBackExceptions(uint32 page, const Line& line, const std::vector<int>& codes) {
    std::string text;
    int first = 0, firstCode = 0, count = 0;
    char firstKind = 0;
    const auto flush = [&] {
        if (count == 1) text += Format(" %04x%c%x", first, firstKind, firstCode);
        if (count > 1) text += Format(" %04x-%04x%c%x", first, first + count - 1, firstKind, firstCode);
        count = 0;
    };
    for (int unit = 0; unit < 65536; ++unit) {
        const auto value = static_cast<wchar16>(unit);
        const ToBytes plain = Encode(page, 0, &value, 1, nullptr);
        const int code = plain.usedDefault ? -1 : plain.Code();
        if (code == codes[static_cast<std::size_t>(unit)]) continue;
        if (code < 0) {
            flush();
            text += Format(" %04x?", unit);
            continue;
        }
        const bool exact = !Encode(page, WC_NO_BEST_FIT_CHARS, &value, 1, nullptr).usedDefault;
        const char kind = exact ? '=' : '~';
        if (count != 0 && unit == first + count && code == firstCode + count && kind == firstKind) {
            ++count;
            continue;
        }
        flush();
        first = unit, firstCode = code, firstKind = kind, count = 1;
    }
    flush();
    line("back" + text);
}

inline constexpr uint32 BackFlags[] = {0, WC_COMPOSITECHECK, WC_NO_BEST_FIT_CHARS,
                                       WC_COMPOSITECHECK | WC_NO_BEST_FIT_CHARS};
inline constexpr const char* BackDefaults[] = {nullptr, "_"};

inline Units AllUnits() {
    Units units;
    for (int unit = 0; unit < 65536; ++unit) units.push_back(static_cast<wchar16>(unit));
    return units;
}

inline std::string WholeTextDigest(uint32 page, uint32 flags, const Units& text, const char* defaultChar) {
    std::vector<char> bytes(text.size() * 3);
    bool used = false;
    const int count =
        platform::WideCharToMultiByte(page, flags, text.data(), static_cast<int>(text.size()), bytes.data(),
                                      static_cast<int>(bytes.size()), defaultChar, page == Utf8 ? nullptr : &used);
    Digest digest;
    digest.Add(bytes.data(), static_cast<std::size_t>(count));
    return Format("%d %d ", count, used ? 1 : 0) + digest.Text();
}

// Every unit alone, with and without the nearest characters.
inline void WriteUnitDigests(uint32 page, const Line& line) {
    for (const uint32 flags : {uint32{0}, uint32{WC_NO_BEST_FIT_CHARS}}) {
        Digest digest;
        for (const wchar16& unit : AllUnits()) {
            const ToBytes answer = Encode(page, flags, &unit, 1, "_");
            digest.Add(answer.Code() << 1 | (answer.usedDefault ? 1 : 0));
        }
        line(Format("units %x _ ", flags) + digest.Text());
    }
}

// All units as one text, in each mode.
inline void WriteTextDigests(uint32 page, const Line& line) {
    const Units all = AllUnits();
    for (const uint32 flags : BackFlags) {
        for (const char* defaultChar : BackDefaults) {
            line(Format("text %x %s ", flags, defaultChar ? defaultChar : "-") +
                 WholeTextDigest(page, flags, all, defaultChar));
        }
    }
}

// ---- combining sequences ----

struct Range {
    int first, last;
};
// Units that follow a base in some canonical decomposition of the basic plane, and some that never do.
inline constexpr Range Marks[] = {{0x300, 0x345},   {0x5B4, 0x5C2},   {0x653, 0x655},   {0x93C, 0x93C},
                                  {0x9BE, 0x9BE},   {0xBBE, 0xBBE},   {0xDCF, 0xDCF},   {0x102E, 0x102E},
                                  {0x1161, 0x1162}, {0x11A8, 0x11A9}, {0x1B35, 0x1B35}, {0x20D0, 0x20D1},
                                  {0x3099, 0x309A}, {0xFE20, 0xFE20}};
inline constexpr Range Bases[] = {{0, 0x5FF},       {0x621, 0x6D5},   {0x928, 0x933},   {0x1100, 0x1102},
                                  {0x1E00, 0x1FFF}, {0x2190, 0x22FF}, {0x3040, 0x30FF}, {0xAC00, 0xAC1C},
                                  {0xFB1D, 0xFB4F}, {0xFF41, 0xFF42}};

inline void WriteCombining(uint32 page, const Line& line) {
    Units text;
    for (const auto [firstMark, lastMark] : Marks) {
        for (int mark = firstMark; mark <= lastMark; ++mark) {
            for (const auto [first, last] : Bases) {
                for (int base = first; base <= last; ++base) {
                    text.insert(text.end(), {static_cast<wchar16>(base), static_cast<wchar16>(mark), wchar16{1}});
                }
            }
        }
    }
    for (const uint32 flags : BackFlags) {
        line(Format("combining %x _ ", flags) + WholeTextDigest(page, flags, text, "_"));
    }
}

// ---- single calls ----

inline constexpr wchar16 UntouchedUnit = 0x5A5A;
inline constexpr char UntouchedByte = '\x5A';
inline constexpr uint32 NoError = 7777;
inline constexpr int Room = 24;
inline constexpr int ZeroTerminated = -1;

inline constexpr uint32 ToTextFlags[] = {0, MB_PRECOMPOSED, MB_ERR_INVALID_CHARS};
inline constexpr uint32 ToBytesFlags[] = {0, WC_COMPOSITECHECK, WC_COMPOSITECHECK | WC_NO_BEST_FIT_CHARS,
                                          ErrInvalidUnits};
// What more there is to WC_COMPOSITECHECK by its documentation.
inline constexpr uint32 OtherCompositeFlags[] = {WC_DEFAULTCHAR,
                                                 WC_DISCARDNS,
                                                 WC_SEPCHARS,
                                                 WC_DEFAULTCHAR | WC_DISCARDNS,
                                                 WC_SEPCHARS | WC_DISCARDNS,
                                                 WC_DEFAULTCHAR | WC_SEPCHARS,
                                                 WC_DEFAULTCHAR | WC_NO_BEST_FIT_CHARS};
inline constexpr uint32 Utf8Flags[] = {0, MB_ERR_INVALID_CHARS};

// Either call's flags; what UTF-8 does with others is among the questions about arguments.
inline bool IsFlagOfUtf8(uint32 flags) {
    return flags == 0 || flags == MB_ERR_INVALID_CHARS || flags == ErrInvalidUnits;
}

inline std::string Outcome(int result) {
    const uint32 error = platform::GetLastError();
    return error == NoError ? Format("%d", result) : Format("%d/%u", result, error);
}

// What stands in the target after a call, up to the last element that changed.
inline std::string Shown(const Units& target) {
    std::size_t end = target.size();
    while (end != 0 && target[end - 1] == UntouchedUnit) --end;
    std::string text;
    for (std::size_t i = 0; i < end; ++i) text += target[i] == UntouchedUnit ? " --" : Format(" %x", target[i]);
    return text;
}

inline std::string Shown(const std::string& target) {
    std::size_t end = target.size();
    while (end != 0 && target[end - 1] == UntouchedByte) --end;
    std::string text;
    for (std::size_t i = 0; i < end; ++i) {
        text += target[i] == UntouchedByte ? " --" : Format(" %02x", static_cast<unsigned char>(target[i]));
    }
    return text;
}

inline std::string ToTextCase(uint32 page, uint32 flags, const std::string& source, int sourceBytes, int size) {
    Units target(Room, UntouchedUnit);
    platform::SetLastError(NoError);
    const int result = platform::MultiByteToWideChar(page, flags, source.c_str(), sourceBytes, target.data(), size);
    const std::string outcome = Outcome(result);
    return outcome + Shown(target);
}

inline std::string ToBytesCase(uint32 page, uint32 flags, const Units& source, int sourceUnits, int size,
                               const char* defaultChar) {
    std::string target(Room * 2, UntouchedByte);
    Units terminated = source;
    terminated.push_back(0);
    bool used = false;
    platform::SetLastError(NoError);
    const int result = platform::WideCharToMultiByte(page, flags, terminated.data(), sourceUnits, target.data(), size,
                                                     defaultChar, page == Utf8 ? nullptr : &used);
    const std::string outcome = Outcome(result);
    return outcome + (used ? " used" : "") + Shown(target);
}

inline std::string HexOf(const std::string& bytes) {
    std::string text;
    for (const char byte : bytes) text += Format("%02x", static_cast<unsigned char>(byte));
    return text;
}

inline std::string HexOf(const Units& units) {
    std::string text;
    for (const wchar16 unit : units) text += Format(text.empty() ? "%x" : ".%x", unit);
    return text;
}

// One source in every flag and at every size up to what it needs, the terminator included for the last lines.
inline void WriteToTextCases(uint32 page, const std::vector<std::string>& sources, const Line& line) {
    for (const std::string& source : sources) {
        const int length = static_cast<int>(source.size());
        for (const uint32 flags : ToTextFlags) {
            if (page == Utf8 && !IsFlagOfUtf8(flags)) continue;
            std::string text = Format("to-text %u %x ", page, flags) + HexOf(source) + ":";
            const int needed = platform::MultiByteToWideChar(page, 0, source.c_str(), length, nullptr, 0);
            for (int size = 0; size <= needed + 1; ++size) {
                text += " |" + ToTextCase(page, flags, source, length, size);
            }
            text += " |z " + ToTextCase(page, flags, source, ZeroTerminated, Room);
            text += " |z " + ToTextCase(page, flags, source, ZeroTerminated, needed);
            line(text);
        }
    }
}

inline void WriteToBytesCase(uint32 page, uint32 flags, const Units& source, const char* defaultChar,
                             const Line& line) {
    std::string text = Format("to-bytes %u %x ", page, flags) + (defaultChar ? HexOf(std::string(defaultChar)) : "-") +
                       " " + HexOf(source) + ":";
    Units terminated = source;
    terminated.push_back(0);
    const int length = static_cast<int>(source.size());
    const int needed = platform::WideCharToMultiByte(page, 0, terminated.data(), length, nullptr, 0, nullptr, nullptr);
    for (int size = 0; size <= needed + 1; ++size) {
        text += " |" + ToBytesCase(page, flags, source, length, size, defaultChar);
    }
    line(text + " |z " + ToBytesCase(page, flags, source, ZeroTerminated, Room, defaultChar));
}

inline void WriteToBytesCases(uint32 page, const std::vector<Units>& sources, const std::vector<const char*>& defaults,
                              const Line& line) {
    for (const Units& source : sources) {
        for (const uint32 flags : ToBytesFlags) {
            if (page == Utf8 && !IsFlagOfUtf8(flags)) continue;
            for (const char* defaultChar : defaults) WriteToBytesCase(page, flags, source, defaultChar, line);
        }
    }
}

inline void WriteSingleByteCases(const Line& line) {
    WriteToTextCases(1252, {"a", "a\x80\xE9", "\x81"}, line);
    WriteToTextCases(1253, {"a\xAA\xE1"}, line);
    WriteToTextCases(874, {"\xDB\xA1"}, line);
    WriteToTextCases(20127, {"a\xBF\xE1"}, line);
    WriteToTextCases(864, {"%\xA6\xC1"}, line);
    const std::vector<Units> texts = {{'a', 0x20AC, 'b'},
                                      {0x100, 0x4E00, 'x'},
                                      {'e', 0x301, 'x'},
                                      {'e', 0x323, 'x'},
                                      {0x301, 'e'},
                                      {'o', 0x302, 0x301},
                                      {'o', 0x301, 0x302, 0x300},
                                      {'e', 0x323, 0x301},
                                      {'e', 0x301, 0x323, 0x300},
                                      {'e', 0},
                                      {'A', 0x30A, 'e', 0x300},
                                      {0xD83D, 0xDE00, 'a'},
                                      {0xDE00, 0xD83D},
                                      {0xD834, 0xDD57, 0xD834, 0xDD65},
                                      {'s', 0x323, 0x307},
                                      {'s', 0x307, 0x323}};
    WriteToBytesCases(1252, texts, {"_"}, line);
    WriteToBytesCases(1252, {{0x100, 0x4E00, 'x'}, {'e', 0x323, 0x301}}, {nullptr, "\0", "xy"}, line);
    for (const uint32 flags : OtherCompositeFlags) {
        for (const Units& text : {Units{'e', 0x323, 'x'}, Units{'s', 0x307, 0x323}, Units{'q', 0x301},
                                  Units{0x103, 0x301}, Units{0x4E00, 0x301, 'a', 0x308}}) {
            WriteToBytesCase(1252, WC_COMPOSITECHECK | flags, text, "_", line);
            WriteToBytesCase(1252, flags, text, "_", line);
            WriteToBytesCase(932, WC_COMPOSITECHECK | flags, text, "_", line);
        }
    }
    WriteToBytesCases(1253, {{0x3B9, 0x308, 0x301}, {0x3B9, 0x301, 0x308}, {0x3B1, 0x345}}, {nullptr, "_"}, line);
    WriteToBytesCases(1258, {{'o', 0x302, 0x301}, {'o', 0x31B, 0x323}, {0x1EA5}, {0xE2, 0x301}}, {"_"}, line);
    WriteToBytesCases(864, {{'%', 0x66A}, {0x634, 0x651}}, {nullptr, "_"}, line);
}

inline void WriteDoubleByteCases(const Line& line) {
    for (const uint32 page : DoublePages) {
        WriteToTextCases(
            page,
            {"a", "\x81", "a\x81", "\xFE", "\x80\xFF", "\xB0\xA1", "\xB0\xA1z", "z\xB0\xA1\xB0", "\x81\x20",
             "\x81\x20\x41", "\x81\x7F\x41", "\xFC\xFC", "\x81\x81\x81", "\xA0", "\x88\x9F\x88",
             std::string("\x81\0", 2), std::string("\x81\0a", 3), std::string("a\x81\0", 3), "\xC9\xFE\xFE\xFE"},
            line);
        WriteToBytesCases(page,
                          {{'a', 0x3042, 0x3042},
                           {0x3042, 'b', 0x4E00},
                           {0x3042, 0xE5E5, 0xD83D, 0xDE00},
                           {0x304B, 0x3099},
                           {0xAC00, 0x11A8},
                           {0x1100, 0x1161},
                           {'e', 0x301},
                           {0x30FB, '?'}},
                          {"_"}, line);
        WriteToBytesCases(page, {{0x3042, 0xE5E5, 0xD83D, 0xDE00}, {'a', 0xFFFF, 'b'}},
                          {nullptr, "\0", "\x81\x40", "\x81", "xyz"}, line);
    }
}

// ---- UTF-8 ----

// One byte of each class that a decoder may tell apart.
inline constexpr unsigned char ByteClasses[] = {0x00, 0x41, 0x7F, 0x80, 0x8F, 0x90, 0x9F, 0xA0, 0xBF, 0xC0, 0xC1,
                                                0xC2, 0xDF, 0xE0, 0xE1, 0xEC, 0xED, 0xEE, 0xEF, 0xF0, 0xF1, 0xF3,
                                                0xF4, 0xF5, 0xF7, 0xF8, 0xFB, 0xFC, 0xFD, 0xFE, 0xFF};
inline constexpr unsigned char ContinuationClasses[] = {0x41, 0x80, 0x8F, 0x90, 0x9F, 0xA0, 0xBF, 0xC2, 0xE1, 0xF1};

inline void AddDecoded(Digest& digest, std::string source) {
    wchar16 target[Room];
    // So much behind it that no sequence is cut off; those that are have lines of their own.
    source += "xxx";
    for (const uint32 flags : Utf8Flags) {
        platform::SetLastError(NoError);
        const int count =
            platform::MultiByteToWideChar(Utf8, flags, source.data(), static_cast<int>(source.size()), target, Room);
        digest.Add(count);
        digest.Add(static_cast<int>(platform::GetLastError()));
        digest.Add(target, static_cast<std::size_t>(count) * sizeof(wchar16));
    }
}

inline void WriteUtf8Sequences(const Line& line) {
    std::string source;
    const auto at = [&](std::size_t place, unsigned char byte) { source[place] = static_cast<char>(byte); };
    for (const unsigned char first : ByteClasses) {
        source.assign(1, static_cast<char>(first));
        line("utf8 " + HexOf(source) + ": " + ToTextCase(Utf8, 0, source, 1, Room));
        for (const unsigned char second : ByteClasses) {
            source.assign({static_cast<char>(first), static_cast<char>(second)});
            Digest digest;
            AddDecoded(digest, source);
            source.resize(3);
            for (const unsigned char third : ByteClasses) {
                at(2, third);
                AddDecoded(digest, source);
            }
            source.resize(5);
            at(4, 'x');
            for (const unsigned char third : ContinuationClasses) {
                for (const unsigned char fourth : ContinuationClasses) {
                    at(2, third);
                    at(3, fourth);
                    AddDecoded(digest, source);
                }
            }
            line(Format("utf8 %02x%02x.. ", first, second) + digest.Text());
        }
    }
}

// Sequences at the end of the text.
inline void WriteUtf8Ends(const Line& line) {
    const auto end = [&](const std::string& source) {
        line("utf8 end " + HexOf(source) + ": " + ToTextCase(Utf8, 0, source, static_cast<int>(source.size()), Room));
    };
    static constexpr char followers[] = {'\x00', '\x41', '\x80', '\x8F', '\x90',
                                         '\x9F', '\xA0', '\xBF', '\xC2', '\xF1'};
    for (const unsigned char first : ByteClasses) {
        for (const char second : followers) {
            const std::string source{static_cast<char>(first), second};
            end(source);
            end("a" + source);
            if (first < 0xF0) continue;
            for (const char third : {'\x00', '\x41', '\x80', '\xBF', '\xC2'}) end(source + third);
        }
    }
}

inline void WriteUtf8Cases(const Line& line) {
    WriteToTextCases(Utf8,
                     {"a", "\xC3\xA9", "a\xC3\xA9\xE2\x82\xAC", "\xF0\x9F\x98\x80z", "\xE2\x82", "z\xF0\x9F\x98",
                      "\xED\xA0\x80", "\xC0\x80", "\xF4\x90\x80\x80", "\xFF", "a\x80g", "\xEF\xBB\xBFq", "\xF0\x9F\x41",
                      "0123456789\xE2\x82\xAC\xC3"},
                     line);
    WriteToBytesCases(Utf8,
                      {{'a'},
                       {0xE9, 0x20AC},
                       {0xD83D, 0xDE00, 'z'},
                       {0xD83D},
                       {0xDE00, 'a'},
                       {0xD83D, 'a'},
                       {0xD83D, 0xD83D, 0xDE00},
                       {0xDE00, 0xD83D, 0x7FF, 0x800},
                       {'e', 0x301}},
                      {nullptr}, line);
    Digest digest;
    for (const wchar16& unit : AllUnits()) {
        char bytes[4];
        const int count = platform::WideCharToMultiByte(Utf8, 0, &unit, 1, bytes, 4, nullptr, nullptr);
        digest.Add(bytes, static_cast<std::size_t>(count));
    }
    line("utf8 all units " + digest.Text());
    line("utf8 all units text " + WholeTextDigest(Utf8, 0, AllUnits(), nullptr));
}

// ---- arguments ----

inline void WriteArgumentCases(const Line& line) {
    const char bytes[] = "ab";
    const wchar16 units[] = {'a', 'b', 0};
    for (const uint32 page : {uint32{1252}, uint32{932}, Utf8, uint32{1200}, uint32{12345}, ~uint32{0}}) {
        wchar16 toUnits[8] = {'a', 0};
        char toBytes[8] = {};
        bool used = false;
        const auto text = [&](const char* what, uint32 flags, const char* source, int length, wchar16* target,
                              int size) {
            platform::SetLastError(NoError);
            const int result = platform::MultiByteToWideChar(page, flags, source, length, target, size);
            line(Format("argument to-text %u %s: ", page, what) + Outcome(result));
        };
        text("null source", 0, nullptr, 1, toUnits, 8);
        text("length 0", 0, bytes, 0, toUnits, 8);
        text("length -2", 0, bytes, -2, toUnits, 8);
        text("null target with a size", 0, bytes, 1, nullptr, 8);
        text("null target, size 0", 0, bytes, 2, nullptr, 0);
        text("negative size", 0, bytes, 1, toUnits, -1);
        text("target is the source", 0, reinterpret_cast<const char*>(toUnits), 1, toUnits, 8);
        text("MB_COMPOSITE", 2, bytes, 1, toUnits, 8);
        text("MB_PRECOMPOSED and MB_COMPOSITE", 3, bytes, 1, toUnits, 8);
        text("MB_USEGLYPHCHARS", 4, bytes, 1, toUnits, 8);
        text("unknown flag", 0x10, bytes, 1, toUnits, 8);
        text("unknown flag and null source", 0x10, nullptr, 1, toUnits, 8);
        const auto back = [&](const char* what, uint32 flags, const wchar16* source, int length, char* target, int size,
                              const char* defaultChar = nullptr) {
            platform::SetLastError(NoError);
            const int result = platform::WideCharToMultiByte(page, flags, source, length, target, size, defaultChar,
                                                             page == Utf8 ? nullptr : &used);
            line(Format("argument to-bytes %u %s: ", page, what) + Outcome(result));
        };
        back("null source", 0, nullptr, 1, toBytes, 8);
        back("length 0", 0, units, 0, toBytes, 8);
        back("length -2", 0, units, -2, toBytes, 8);
        back("null target with a size", 0, units, 1, nullptr, 8);
        back("null target, size 0", 0, units, 2, nullptr, 0);
        back("negative size", 0, units, 1, toBytes, -1);
        back("unknown flag", 0x800, units, 1, toBytes, 8);
        back("default character", 0, units, 1, toBytes, 8, "_");
        back("unknown flag and null source", 0x800, nullptr, 1, toBytes, 8);
        platform::SetLastError(NoError);
        const int told = platform::WideCharToMultiByte(page, 0, units, 1, toBytes, 8, nullptr, &used);
        line(Format("argument to-bytes %u asked for the use of the default: ", page) + Outcome(told));
        for (uint32 flag = 1; flag <= 0x2000; flag <<= 1) {
            back(Format("flag %x", flag).c_str(), flag, units, 1, toBytes, 8);
        }
        back("target is the source", 0, reinterpret_cast<const wchar16*>(toUnits), 1, reinterpret_cast<char*>(toUnits),
             8);
    }
}

inline void WriteValidPages(const Line& line) {
    std::string text = "valid";
    for (const uint32 page : SinglePages) text += Format(" %u=%d", page, platform::IsValidCodePage(page) ? 1 : 0);
    for (const uint32 page : DoublePages) text += Format(" %u=%d", page, platform::IsValidCodePage(page) ? 1 : 0);
    for (const uint32 page : {uint32{0}, uint32{1}, uint32{3}, uint32{1200}, uint32{1201}, Utf8, uint32{4}, uint32{858},
                              uint32{12345}, uint32{65002}, uint32{65535}, uint32{65536}, ~uint32{0}}) {
        text += Format(" %u=%d", page, platform::IsValidCodePage(page) ? 1 : 0);
    }
    line(text);
}

inline void WritePage(uint32 page, const Line& line) {
    line(Format("page %u default %04x leads", page, DefaultUnit(page)) + LeadBytes(page));
    std::vector<int> codes(65536, -1);
    WriteForward(page, line, codes);
    WriteBackExceptions(page, line, codes);
    WriteUnitDigests(page, line);
    WriteTextDigests(page, line);
    WriteCombining(page, line);
}

// Calls `line` for each line, in a fixed order.
inline void WriteCodePageVectors(const Line& line) {
    WriteValidPages(line);
    for (const uint32 page : SinglePages) WritePage(page, line);
    for (const uint32 page : DoublePages) WritePage(page, line);
    WriteSingleByteCases(line);
    WriteDoubleByteCases(line);
    WriteUtf8Sequences(line);
    WriteUtf8Ends(line);
    WriteUtf8Cases(line);
    WriteArgumentCases(line);
}

}  // namespace code_page_probe
