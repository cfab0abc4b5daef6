// Asks the platform layer for dates and times in pictures, and writes the answers down as lines; see probe_writer.h.
//
// The same questions are put to the system's own calls under Wine, which gives the checked-in vectors
// (date_format_vectors.txt), and to the layer under test; see date_format_vectors_internal_test.cpp.
#pragma once

#include <Utility/platform/date_format.h>
#include <golden/probe_writer.h>

#include <string>
#include <utility>

namespace Torvo::test {

class DateFormatProbe : private ProbeWriter {
public:
    std::string Run() {
        Pictures();
        Calls();
        for (const uint32 locale : ProbedLocales) Values(locale);
        return std::move(out);
    }

private:
    // With the locales whose month names have a genitive, and scripts from right to left.
    static constexpr uint32 ProbedLocales[] = {
        0x007F, 0x0401, 0x0402, 0x0403, 0x0405, 0x0407, 0x0408, 0x0409, 0x040A, 0x040B, 0x040C, 0x040D, 0x040E,
        0x0410, 0x0411, 0x0412, 0x0413, 0x0415, 0x0416, 0x0419, 0x041A, 0x041D, 0x041E, 0x041F, 0x0422, 0x0423,
        0x0425, 0x0426, 0x0427, 0x0429, 0x042A, 0x042D, 0x0439, 0x0456, 0x0804, 0x0809, 0x0816, 0x0C0C, 0x1009};
    static constexpr uint32 English = 0x0409;
    static constexpr SYSTEMTIME LeapDay = {2024, 2, 0, 29, 13, 5, 9, 250};
    static constexpr SYSTEMTIME EarlyDay = {2009, 5, 0, 3, 0, 0, 0, 0};

    // What each letter, and each length of it, stands for.
    void Pictures() {
        out += "[pictures]\n";
        for (const char letter : {'d', 'M', 'y', 'g', 'h', 'H', 'm', 's', 't'}) {
            std::basic_string<wchar16> picture;
            for (int count = 1; count <= 6; ++count) {
                picture += static_cast<wchar16>(letter);
                Date(English, LeapDay, picture.c_str());
                Date(English, EarlyDay, picture.c_str());
                Time(English, LeapDay, picture.c_str());
                Time(English, EarlyDay, picture.c_str());
            }
        }
        for (const wchar16* const picture : {ZUTEXT(""),
                                             ZUTEXT("'"),
                                             ZUTEXT("''"),
                                             ZUTEXT("'''"),
                                             ZUTEXT("''''"),
                                             ZUTEXT("'''''"),
                                             ZUTEXT("'d'"),
                                             ZUTEXT("'d"),
                                             ZUTEXT("d'"),
                                             ZUTEXT("d''d"),
                                             ZUTEXT("'d''d'"),
                                             ZUTEXT("'d'''"),
                                             ZUTEXT("'''d'"),
                                             ZUTEXT("d 'de' MMMM 'de' yyyy"),
                                             ZUTEXT("d'd''"),
                                             ZUTEXT("\\d"),
                                             ZUTEXT("\"d\""),
                                             ZUTEXT("a b c e f i"),
                                             ZUTEXT("D Y G T S"),
                                             ZUTEXT("dMyHmst"),
                                             ZUTEXT("yyyy-MM-dd"),
                                             ZUTEXT("d/M/yy"),
                                             ZUTEXT("%d"),
                                             ZUTEXT("H:m:s.fff"),
                                             ZUTEXT("HH:mm:ss.fffffff"),
                                             ZUTEXT("h:mm tt"),
                                             ZUTEXT("tt h:mm"),
                                             ZUTEXT("h 'hours'"),
                                             ZUTEXT("'o''clock' h"),
                                             ZUTEXT("dd.MM.yyyy HH:mm:ss"),
                                             ZUTEXT("hhh:mmm:sss ttt"),
                                             ZUTEXT("\u0434 d \u00E9"),
                                             ZUTEXT("g yyyy gg"),
                                             ZUTEXT("yyyy g"),
                                             ZUTEXT("d g MMMM"),
                                             ZUTEXT("tt"),
                                             ZUTEXT("t"),
                                             ZUTEXT("-"),
                                             ZUTEXT("h-'x'-tt-s"),
                                             ZUTEXT("h'x'mm's'ss't'tt")}) {
            Date(English, LeapDay, picture);
            Time(English, LeapDay, picture);
        }
        // The genitive of a month's name, decided by what else the picture has.
        for (const wchar16* const picture :
             {ZUTEXT("MMMM"),     ZUTEXT("yyyy MMMM"),   ZUTEXT("d MMMM"),      ZUTEXT("dd MMMM"),
              ZUTEXT("MMMM d"),   ZUTEXT("MMMM dd"),     ZUTEXT("dddd MMMM"),   ZUTEXT("dMMMM"),
              ZUTEXT("MMMMd"),    ZUTEXT("d yyyy MMMM"), ZUTEXT("MMMM yyyy d"), ZUTEXT("d 'x' MMMM"),
              ZUTEXT("'d' MMMM"), ZUTEXT("MMMM 'd'"),    ZUTEXT("d MMMM MMMM"), ZUTEXT("d MMM"),
              ZUTEXT("MMM d"),    ZUTEXT("MMM"),         ZUTEXT("MMMM yyyy"),   ZUTEXT("MMMM, d")}) {
            for (const uint32 locale : {0x0415u, 0x0419u, 0x040Bu, 0x0408u, 0x0405u}) Date(locale, EarlyDay, picture);
        }
        for (const uint32 flags : {1u, 2u, 4u, 8u, 12u}) {
            for (const wchar16* const picture :
                 {ZUTEXT("h:mm:ss tt"), ZUTEXT("tt h:mm:ss"), ZUTEXT("tth:mm"), ZUTEXT("h'h'mm'm'ss"),
                  ZUTEXT("h.mm.ss.t"), ZUTEXT("ss mm hh tt"), ZUTEXT("ss"), ZUTEXT("mm"), ZUTEXT("tt")}) {
                Time(English, LeapDay, picture, flags);
            }
            for (const uint32 locale : {0x0407u, 0x0409u, 0x0412u}) Time(locale, LeapDay, nullptr, flags);
        }
        for (uint16 hour = 0; hour < 24; ++hour) {
            const SYSTEMTIME time = {2024, 1, 0, 1, hour, 59, 0, 999};
            Time(English, time, ZUTEXT("h hh H HH t tt"));
        }
    }

    // Sizes, ranges, flags and failures.
    void Calls() {
        out += "[calls]\n";
        for (const int size : {0, 1, 10, 11, 12, 40, -1}) {
            Call(true, 0x0409, 0, LeapDay, ZUTEXT("yyyy-MM-dd"), size);
            Call(false, 0x0409, 0, LeapDay, ZUTEXT("HH:mm:ss.f"), size);
        }
        for (const int size : {0, 1, 2}) {
            Call(true, 0x0409, 0, LeapDay, ZUTEXT(""), size);
            Call(false, 0x0409, 0, LeapDay, ZUTEXT(""), size);
        }
        Line("GetDateFormatW no buffer 0",
             Result(platform::GetDateFormatW(English, 0, &LeapDay, ZUTEXT("d"), nullptr, 0)));
        Line("GetDateFormatW no buffer 5",
             Result(platform::GetDateFormatW(English, 0, &LeapDay, ZUTEXT("d"), nullptr, 5)));
        Line("GetTimeFormatW no buffer 0",
             Result(platform::GetTimeFormatW(English, 0, &LeapDay, ZUTEXT("h"), nullptr, 0)));
        Line("GetTimeFormatW no buffer 5",
             Result(platform::GetTimeFormatW(English, 0, &LeapDay, ZUTEXT("h"), nullptr, 5)));
        Line("GetDateFormatW today",
             platform::GetDateFormatW(English, 0, nullptr, ZUTEXT("yyyy"), buffer, 40) == 5 ? "5" : Error());
        Line("GetTimeFormatW now",
             platform::GetTimeFormatW(English, 0, nullptr, ZUTEXT("HH:mm"), buffer, 40) == 6 ? "6" : Error());
        for (const uint32 locale :
             {0u, 0x400u, 0x800u, 0xC00u, 0x1000u, 0x1234u, 0xFFFFu, 0x10409u, 0x0007u, 0x10407u, 0x7Fu}) {
            Call(true, locale, 0, LeapDay, ZUTEXT("yyyy"), 40);
            Call(false, locale, 0, LeapDay, ZUTEXT("HH"), 40);
        }
        for (uint32 bit = 0; bit < 32; ++bit) {
            Call(true, 0x0409, 1u << bit, LeapDay, ZUTEXT("d"), 40);
            Call(true, 0x0409, 1u << bit, LeapDay, nullptr, 40);
            Call(false, 0x0409, 1u << bit, LeapDay, ZUTEXT("h:mm:ss tt"), 40);
            Call(false, 0x0409, 1u << bit, LeapDay, nullptr, 40);
        }
        for (const uint32 flags :
             {3u, 9u, 10u, 11u, 0x30u, 0x80000001u, 0x80000002u, 0x80u | 1, 0x80u | 2, 0x80u | 8, 0x80000003u}) {
            Call(true, 0x0409, flags, LeapDay, nullptr, 40);
            Call(true, 0x0409, flags, LeapDay, ZUTEXT("d"), 40);
        }
        for (const SYSTEMTIME& date :
             {SYSTEMTIME{1601, 1, 0, 1, 0, 0, 0, 0},       SYSTEMTIME{1600, 12, 0, 31, 0, 0, 0, 0},
              SYSTEMTIME{1600, 2, 0, 29, 0, 0, 0, 0},      SYSTEMTIME{987, 6, 0, 5, 0, 0, 0, 0},
              SYSTEMTIME{1, 1, 0, 1, 0, 0, 0, 0},          SYSTEMTIME{0, 1, 0, 1, 0, 0, 0, 0},
              SYSTEMTIME{9999, 12, 0, 31, 0, 0, 0, 0},     SYSTEMTIME{10000, 1, 0, 1, 0, 0, 0, 0},
              SYSTEMTIME{30827, 12, 0, 31, 0, 0, 0, 0},    SYSTEMTIME{30828, 1, 0, 1, 0, 0, 0, 0},
              SYSTEMTIME{32767, 1, 0, 1, 0, 0, 0, 0},      SYSTEMTIME{65535, 1, 0, 1, 0, 0, 0, 0},
              SYSTEMTIME{2023, 2, 0, 29, 0, 0, 0, 0},      SYSTEMTIME{2024, 2, 0, 30, 0, 0, 0, 0},
              SYSTEMTIME{2024, 0, 0, 1, 0, 0, 0, 0},       SYSTEMTIME{2024, 13, 0, 1, 0, 0, 0, 0},
              SYSTEMTIME{2024, 1, 0, 0, 0, 0, 0, 0},       SYSTEMTIME{2024, 1, 0, 32, 0, 0, 0, 0},
              SYSTEMTIME{2024, 65535, 0, 1, 0, 0, 0, 0},   SYSTEMTIME{2024, 1, 6, 1, 0, 0, 0, 0},
              SYSTEMTIME{2024, 1, 7, 1, 0, 0, 0, 0},       SYSTEMTIME{2024, 1, 99, 1, 0, 0, 0, 0},
              SYSTEMTIME{2024, 1, 0, 1, 99, 99, 99, 9999}, SYSTEMTIME{1900, 2, 0, 28, 0, 0, 0, 0},
              SYSTEMTIME{2100, 3, 0, 1, 0, 0, 0, 0},       SYSTEMTIME{30827, 9, 0, 14, 2, 48, 5, 477},
              SYSTEMTIME{30827, 9, 0, 14, 2, 48, 5, 478},  SYSTEMTIME{30827, 9, 0, 15, 0, 0, 0, 0}}) {
            Date(English, date, ZUTEXT("dddd ddd dd MMMM MM yyyy yy y"));
        }
        for (const SYSTEMTIME& time :
             {SYSTEMTIME{0, 0, 0, 0, 23, 59, 59, 999}, SYSTEMTIME{0, 0, 0, 0, 24, 0, 0, 0},
              SYSTEMTIME{0, 0, 0, 0, 0, 60, 0, 0}, SYSTEMTIME{0, 0, 0, 0, 0, 0, 60, 0},
              SYSTEMTIME{0, 0, 0, 0, 0, 0, 0, 1000}, SYSTEMTIME{65535, 65535, 65535, 65535, 1, 2, 3, 4},
              SYSTEMTIME{0, 0, 0, 0, 65535, 0, 0, 0}}) {
            Time(English, time, ZUTEXT("H:m:s"));
        }
    }

    void Values(uint32 locale) {
        out += '[';
        out += Hex(locale);
        out += "]\n";
        for (const SYSTEMTIME& date :
             {LeapDay, EarlyDay, SYSTEMTIME{1601, 1, 0, 1, 0, 0, 0, 0}, SYSTEMTIME{9999, 12, 0, 31, 23, 59, 59, 999}}) {
            for (const wchar16* const picture :
                 {static_cast<const wchar16*>(nullptr), ZUTEXT("yyyy-MM-dd"), ZUTEXT("d/M/y"), ZUTEXT("g")}) {
                Date(locale, date, picture);
            }
            Date(locale, date, nullptr, DATE_LONGDATE);
            for (const wchar16* const picture :
                 {static_cast<const wchar16*>(nullptr), ZUTEXT("h:mm:ss tt"), ZUTEXT("HH.mm t"), ZUTEXT("H:m")}) {
                Time(locale, date, picture);
            }
            Time(locale, date, nullptr, TIME_FORCE24HOURFORMAT);
            Time(locale, date, nullptr, TIME_NOSECONDS);
        }
        for (uint16 month = 1; month <= 12; ++month) {
            const SYSTEMTIME date = {2023, month, 0, 11, 0, 0, 0, 0};
            for (const wchar16* const picture :
                 {ZUTEXT("yyyy MMMM"), ZUTEXT("d MMMM yyyy"), ZUTEXT("MMM"), ZUTEXT("d MMM")}) {
                Date(locale, date, picture);
            }
        }
        for (uint16 day = 1; day <= 7; ++day) {
            Date(locale, {2023, 1, 0, day, 0, 0, 0, 0}, ZUTEXT("dddd ddd"));
        }
    }

    // ---- Questions

    void Date(uint32 locale, const SYSTEMTIME& date, const wchar16* picture, uint32 flags = 0) {
        const int result = platform::GetDateFormatW(locale, flags, &date, picture, buffer, 400);
        Line(Words({Hex(locale), "date", Numbers({date.wYear, date.wMonth, date.wDay, date.wDayOfWeek}),
                    Picture(picture, flags)}),
             result != 0 ? Quoted(buffer) : Error());
    }

    void Time(uint32 locale, const SYSTEMTIME& time, const wchar16* picture, uint32 flags = 0) {
        const int result = platform::GetTimeFormatW(locale, flags, &time, picture, buffer, 400);
        Line(Words({Hex(locale), "time", Numbers({time.wHour, time.wMinute, time.wSecond, time.wMilliseconds}),
                    Picture(picture, flags)}),
             result != 0 ? Quoted(buffer) : Error());
    }

    void Call(bool isDate, uint32 locale, uint32 flags, const SYSTEMTIME& time, const wchar16* picture, int size) {
        Fill();
        platform::SetLastError(0);
        const auto call = isDate ? platform::GetDateFormatW : platform::GetTimeFormatW;
        const int result = call(locale, flags, &time, picture, buffer, size);
        Line(Words({isDate ? "GetDateFormatW" : "GetTimeFormatW", Hex(locale), Picture(picture, flags),
                    std::to_string(size)}),
             Words({Result(result), "wrote", std::to_string(Written())}));
    }

    static std::string Numbers(std::initializer_list<int> numbers) {
        std::string text;
        for (const int number : numbers) {
            if (!text.empty()) text += '.';
            text += std::to_string(number);
        }
        return text;
    }

    // An equals sign would end the key.
    static std::string Picture(const wchar16* picture, uint32 flags) {
        return Words({picture != nullptr ? Quoted(picture) : "no picture", "flags", Hex(flags)});
    }
};

}  // namespace Torvo::test
