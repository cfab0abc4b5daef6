// Asks the platform layer everything about locales that the library ever asks, and writes the answers down as lines.
//
// The same questions are put to the system's own calls under Wine, which gives the checked-in vectors
// (locale_vectors.txt), and to the layer under test; see locale_vectors_internal_test.cpp.
//
// A line is `key=answer`, a line in brackets starts a section. Answers that depend on the user's environment are not
// written. Units that an editor would not show are written as \uhhhh.
#pragma once

#include <Utility/platform/platform.h>
#include <golden/probe_writer.h>

#include <string>
#include <string_view>
#include <vector>

namespace Torvo::test {

class LocaleProbe : private ProbeWriter {
public:
    std::string Run() {
        const uint32 former = platform::GetThreadLocale();
        Identifiers();
        Names();
        Calls();
        for (const uint32 locale : ProbedLocales) Values(locale);
        platform::SetThreadLocale(former);
        return std::move(out);
    }

private:
    // Every language of the first sort that CLDR holds, and variants by territory, script and sort order.
    static constexpr uint32 ProbedLocales[] = {
        0x0001,  0x0009,  0x007F, 0x0401, 0x0402, 0x0403, 0x0405, 0x0406, 0x0407, 0x0408, 0x0409, 0x040B, 0x040C,
        0x040D,  0x040E,  0x040F, 0x0410, 0x0411, 0x0412, 0x0413, 0x0414, 0x0415, 0x0416, 0x0417, 0x0418, 0x0419,
        0x041A,  0x041B,  0x041C, 0x041D, 0x041E, 0x041F, 0x0420, 0x0421, 0x0422, 0x0423, 0x0424, 0x0425, 0x0426,
        0x0427,  0x0429,  0x042A, 0x042B, 0x042C, 0x042D, 0x042E, 0x042F, 0x0434, 0x0435, 0x0436, 0x0437, 0x0438,
        0x0439,  0x043A,  0x043B, 0x043D, 0x043E, 0x043F, 0x0440, 0x0441, 0x0442, 0x0443, 0x0444, 0x0445, 0x0447,
        0x0448,  0x0449,  0x044A, 0x044B, 0x044C, 0x044D, 0x044E, 0x044F, 0x0450, 0x0451, 0x0452, 0x0453, 0x0454,
        0x0455,  0x0456,  0x0457, 0x0459, 0x045B, 0x045E, 0x0460, 0x0461, 0x0462, 0x0463, 0x0464, 0x0467, 0x046A,
        0x046E,  0x046F,  0x0470, 0x0472, 0x0473, 0x0475, 0x0477, 0x0478, 0x047E, 0x0480, 0x0481, 0x0484, 0x0485,
        0x0487,  0x0488,  0x0491, 0x0803, 0x0804, 0x0807, 0x0809, 0x080A, 0x0810, 0x0813, 0x0814, 0x0816, 0x081D,
        0x0820,  0x082C,  0x083C, 0x0843, 0x0C01, 0x0C04, 0x0C07, 0x0C09, 0x0C0A, 0x0C0C, 0x1009, 0x100A, 0x100C,
        0x1404,  0x1407,  0x1409, 0x1809, 0x1C09, 0x1C1A, 0x241A, 0x281A, 0x2C0A, 0x340A, 0x3801, 0x4009, 0x7C04,
        0x10407, 0x30404,
    };

    static constexpr uint32 FormatTypes[] = {
        LOCALE_IDEFAULTCODEPAGE,
        LOCALE_IDEFAULTANSICODEPAGE,
        LOCALE_SDECIMAL,
        LOCALE_STHOUSAND,
        LOCALE_SGROUPING,
        LOCALE_IDIGITS,
        LOCALE_ILZERO,
        LOCALE_INEGNUMBER,
        LOCALE_SCURRENCY,
        LOCALE_SMONDECIMALSEP,
        LOCALE_SMONTHOUSANDSEP,
        LOCALE_SMONGROUPING,
        LOCALE_ICURRDIGITS,
        LOCALE_ICURRENCY,
        LOCALE_INEGCURR,
        LOCALE_SDATE,
        LOCALE_IDATE,
        LOCALE_SSHORTDATE,
        LOCALE_SLONGDATE,
        LOCALE_STIME,
        LOCALE_ITIME,
        LOCALE_ITIMEMARKPOSN,
        LOCALE_STIMEFORMAT,
        LOCALE_S1159,
        LOCALE_S2359,
    };

    // ---- The sections

    // For each identifier: name with neutral names allowed, name without, code pages, the thread's locale after setting
    // it.
    void Identifiers() {
        out += "[identifiers]\n";
        for (uint32 locale = 1; locale < 0x60000; ++locale) {
            wchar16 name[100];
            if (IsDefault(locale) || platform::LCIDToLocaleName(locale, name, 100, 0) == 0) continue;
            const bool set = platform::SetThreadLocale(locale);
            Line(Hex(locale), Words({Name(locale, LOCALE_ALLOW_NEUTRAL_NAMES), Name(locale, 0),
                                     Value(locale, LOCALE_IDEFAULTANSICODEPAGE), Value(locale, LOCALE_IDEFAULTCODEPAGE),
                                     set ? Hex(platform::GetThreadLocale()) : Error()}));
        }
        for (const uint32 locale : {0u, 0x400u, 0x800u, 0xC00u, 0x1000u, 0x1400u}) {
            Line(Hex(locale), Name(locale, 0) == SystemDefaultName() ? "system default" : "another");
        }
    }

    // For each name: its identifier without and with neutral names allowed.
    void Names() {
        out += "[names]\n";
        for (uint32 locale = 1; locale < 0x60000; ++locale) {
            wchar16 name[100];
            if (IsDefault(locale)) continue;
            if (platform::LCIDToLocaleName(locale, name, 100, LOCALE_ALLOW_NEUTRAL_NAMES) != 0) NameLine(name);
        }
        for (const wchar16* const name :
             {ZUTEXT("en-us"), ZUTEXT("EN-US"), ZUTEXT("en_US"), ZUTEXT("sr_latn-rs"), ZUTEXT("xx-XX"), ZUTEXT("xx"),
              ZUTEXT("en-ZZ"), ZUTEXT("en-US-"), ZUTEXT("-en"), ZUTEXT("a-b-c"), ZUTEXT("en-US-x-private"),
              ZUTEXT("abcdefghij"), ZUTEXT("C"), ZUTEXT("POSIX"), ZUTEXT("und"), ZUTEXT("root"), ZUTEXT("tl-PH"),
              ZUTEXT("no"), ZUTEXT("no-NO"), ZUTEXT("iw-IL"), ZUTEXT("zh-CHS"), ZUTEXT("sr-RS"), ZUTEXT("zh-Hans-CN"),
              ZUTEXT("zh-Hant-TW"), ZUTEXT("pa-Guru-IN"), ZUTEXT("en\u00E9"), ZUTEXT(" en-US"),
              // Known, but without a number of their own.
              ZUTEXT("en-AT"), ZUTEXT("de-BE"), ZUTEXT("en-001"), ZUTEXT("es-BR"), ZUTEXT("eo"), ZUTEXT("ast-ES"),
              ZUTEXT("fr-TN"), ZUTEXT("ru-UA"), ZUTEXT("sr-Latn-XK"), ZUTEXT("ca-AD"), ZUTEXT("kw-GB"),
              ZUTEXT("shi-Tfng-MA")}) {
            NameLine(name);
        }
        const std::basic_string<wchar16> tooLong(85, 'a');
        NameLine(tooLong.c_str());
    }

    // Sizes, flags and failures. An answer is the result, the error after a failure, and how many units of the buffer
    // were written.
    void Calls() {
        out += "[calls]\n";
        for (const uint32 type : {LOCALE_SDECIMAL, LOCALE_SLONGDATE, LOCALE_SMONTHNAME13, LOCALE_IDATE,
                                  LOCALE_IDATE | LOCALE_RETURN_NUMBER}) {
            const int needed = platform::GetLocaleInfoW(0x409, type, nullptr, 0);
            for (const int size : {0, 1, needed - 1, needed, needed + 5, -1}) Query(0x409, type, size);
            NullQuery(0x409, type, 0);
        }
        for (const uint32 locale : {0x1234u, 0xFFFFu, 0x0099u, 0x10409u, 0xF0407u, 0x80000409u, 0x00100409u, 0x0409u}) {
            Query(locale, LOCALE_SDECIMAL, 20);
            Query(locale, LOCALE_SDECIMAL, 0);
        }
        for (const uint32 type :
             {0x0000u, 0x1080u, 0x2000u, 0xFFFFu, static_cast<uint32>(LOCALE_SDECIMAL | LOCALE_NOUSEROVERRIDE),
              static_cast<uint32>(LOCALE_SDECIMAL | LOCALE_RETURN_NUMBER),
              static_cast<uint32>(LOCALE_SMONTHNAME1 | LOCALE_RETURN_NUMBER),
              static_cast<uint32>(LOCALE_ITIME | LOCALE_RETURN_NUMBER | LOCALE_NOUSEROVERRIDE)}) {
            Query(0x409, type, 20);
        }
        for (const uint32 type : FormatTypes) Number(0x407, type);
        for (const int size : {0, 1, 5, 6, 20, -1}) {
            NameQuery(0x407, size, 0);
            NameQuery(0x007, size, LOCALE_ALLOW_NEUTRAL_NAMES);
        }
        for (const uint32 locale : {0x1234u, 0xFFFFu, 0x10409u, 0x7Fu, 0x80000409u}) NameQuery(locale, 20, 0);
        Line("LCIDToLocaleName null 0", Result(platform::LCIDToLocaleName(0x407, nullptr, 0, 0)));
        Line("SetThreadLocale 1234", platform::SetThreadLocale(0x1234) ? "1" : Error());
        wchar16 name[100];
        Line("GetSystemDefaultLocaleName 1", Result(platform::GetSystemDefaultLocaleName(name, 1)));
        Line("GetSystemDefaultLocaleName -1", Result(platform::GetSystemDefaultLocaleName(name, -1)));
    }

    void Values(uint32 locale) {
        out += '[';
        out += Hex(locale);
        out += "]\n";
        for (const uint32 type : FormatTypes) Line(Hex(type), Value(locale, type));
        Series(locale, "days", LOCALE_SDAYNAME1, 7);
        Series(locale, "short days", LOCALE_SABBREVDAYNAME1, 7);
        Series(locale, "months", LOCALE_SMONTHNAME1, 12, LOCALE_SMONTHNAME13);
        Series(locale, "short months", LOCALE_SABBREVMONTHNAME1, 12, LOCALE_SABBREVMONTHNAME13);
    }

    // ---- Questions

    void NameLine(const wchar16* name) {
        const uint32 plain = platform::LocaleNameToLCID(name, 0);
        const std::string first = plain != 0 ? Hex(plain) : Error();
        const uint32 neutral = platform::LocaleNameToLCID(name, LOCALE_ALLOW_NEUTRAL_NAMES);
        Line(Quoted(name), Words({first, neutral != 0 ? Hex(neutral) : Error()}));
    }

    void Query(uint32 locale, uint32 type, int size) {
        Fill();
        const int result = platform::GetLocaleInfoW(locale, type, buffer, size);
        Line(Words({"GetLocaleInfoW", Hex(locale), Hex(type), std::to_string(size)}),
             Words({Result(result), "wrote", std::to_string(Written())}));
    }

    void NullQuery(uint32 locale, uint32 type, int size) {
        Line(Words({"GetLocaleInfoW", Hex(locale), Hex(type), "null", std::to_string(size)}),
             Result(platform::GetLocaleInfoW(locale, type, nullptr, size)));
    }

    void Number(uint32 locale, uint32 type) {
        Fill();
        const int result = platform::GetLocaleInfoW(locale, type | LOCALE_RETURN_NUMBER, buffer, 20);
        const auto number = static_cast<int32>(buffer[0] + static_cast<uint32>(buffer[1]) * 65536);
        Line(Words({"number", Hex(locale), Hex(type)}),
             result == 0 ? Result(result) : Words({Result(result), std::to_string(number)}));
    }

    void NameQuery(uint32 locale, int size, uint32 flags) {
        Fill();
        const int result = platform::LCIDToLocaleName(locale, buffer, size, flags);
        Line(Words({"LCIDToLocaleName", Hex(locale), std::to_string(size), Hex(flags)}),
             Words({Result(result), "wrote", std::to_string(Written())}));
    }

    void Series(uint32 locale, const char* key, uint32 first, uint32 count, uint32 last = 0) {
        std::string values;
        for (uint32 i = 0; i < count; ++i) {
            if (i != 0) values += '|';
            values += Value(locale, first + i);
        }
        if (last != 0) {
            values += '|';
            values += Value(locale, last);
        }
        Line(key, values);
    }

    static std::string Value(uint32 locale, uint32 type) {
        wchar16 value[400];
        return platform::GetLocaleInfoW(locale, type, value, 400) != 0 ? Text(value) : Error();
    }

    static std::string Name(uint32 locale, uint32 flags) {
        wchar16 name[100];
        return platform::LCIDToLocaleName(locale, name, 100, flags) != 0 ? Quoted(name) : Error();
    }

    static std::basic_string<wchar16> SystemDefault() {
        wchar16 name[100] = {};
        platform::GetSystemDefaultLocaleName(name, 100);
        return name;
    }
    static std::string SystemDefaultName() { return Quoted(SystemDefault().c_str()); }

    static bool IsDefault(uint32 locale) {
        return locale == 0x400 || locale == 0x800 || locale == 0xC00 || locale == 0x1000 || locale == 0x1400;
    }
};

}  // namespace Torvo::test
