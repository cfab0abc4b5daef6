// The readers of times and spans in their plain form: every step one statement, on a copy of the text that shrinks as
// it is read. What the library does is compared with this.
#pragma once

#include <Utility/bounded_copy.h>
#include <Utility/platform/number_text.h>
#include <Utility/platform/runtime.h>
#include <support/time_locale.h>

#include <cmath>
#include <limits>
#include <optional>

namespace Torvo::test {

class PlainTimeReader {
public:
    // `rawHabits` outlives the reader.
    explicit PlainTimeReader(const TimeHabits& rawHabits) : habits(rawHabits) {}

    // The ticks of a time of day.
    std::optional<int64> ReadTime(const wchar16* text) const {
        const std::optional<int64> literal = ReadLiteral(text);
        if (literal && PartsAreGood(*literal)) return TicksOfLiteral(*literal);
        wchar16 rest[100];
        if (!Copy(text, rest)) return std::nullopt;
        bool found = false;
        bool isPm = false;
        if (habits.markPosition != 0) SkipMark(rest, found, isPm);
        int64 hours = 0;
        int32 minutes = 0;
        double seconds = 0;
        int32 hoursAsRead = 0;
        if (!ReadFields(rest, hoursAsRead, minutes, seconds)) return std::nullopt;
        if (habits.markPosition == 0) SkipMark(rest, found, isPm);
        if (rest[0] != 0) return std::nullopt;
        hours = hoursAsRead;
        if (hours == 12) {
            if (found && !isPm) hours = 0;
        } else if (found && isPm) {
            hours += 12;
        }
        if (hours > 23 || hours < 0) return std::nullopt;
        if (minutes < 0 || minutes >= 60) return std::nullopt;
        if (!(seconds >= 0.0 && seconds < 60.0)) return std::nullopt;
        return (hours * 60 + minutes) * 600000000 + static_cast<int64>(std::trunc(seconds * 1e7));
    }

    bool Parse(const wchar16* text, int32* hours, int32* minutes, double* seconds) const {
        const std::optional<int64> literal = ReadLiteral(text);
        if (literal) {
            *hours = static_cast<int32>(*literal / 100000000000);
            *minutes = static_cast<int32>(*literal / 1000000000 % 100);
            *seconds = static_cast<double>(*literal % 10000000) / 1e7 + static_cast<double>(*literal / 10000000 % 100);
            if (PartsAreGood(*literal)) return true;
        }
        wchar16 rest[100];
        if (!Copy(text, rest)) return false;
        if (!ReadFields(rest, *hours, *minutes, *seconds)) return false;
        if (rest[0] != 0) return false;
        if (*hours < 0 || *hours > 23) return false;
        if (*minutes < 0 || *minutes > 59) return false;
        return *seconds >= 0.0 && *seconds < 60.0;
    }

    // The ticks of a span. Of literals only those that do not overflow.
    std::optional<int64> ReadSpan(const wchar16* text) const {
        if (const std::optional<int64> literal = ReadSpanLiteral(text)) return literal;
        wchar16 rest[256];
        strcpyn(rest, text, 256);
        ltrim(rest);
        rtrim(rest);
        wchar16* end;
        const int32 days = platform::wcstol(rest, &end, 10);
        Drop(rest, static_cast<std::size_t>(end - rest));
        ltrim(rest);
        while (rest[0] == '.') Drop(rest, 1);
        int32 hours = 0;
        int32 minutes = 0;
        double seconds = 0;
        if (!Parse(rest, &hours, &minutes, &seconds)) return std::nullopt;
        const double total = days < 0 ? days * 24.0 * 3600.0 - hours * 3600.0 - minutes * 60.0 - seconds
                                      : hours * 3600.0 + days * 24.0 * 3600.0 + minutes * 60.0 + seconds;
        const double ticks = std::trunc(total * 1e7);
        if (ticks >= 9223372036854775808.0) return std::nullopt;
        if (ticks < -9223372036854775808.0) return std::numeric_limits<int64>::min();
        return static_cast<int64>(ticks);
    }

private:
    static constexpr const wchar16* Digits = ZUTEXT("0123456789");

    static std::optional<int64> ReadLiteral(const wchar16* text) {
        if (platform::wcslen(text) != 13 || platform::wcsspn(text, Digits) != 13) return std::nullopt;
        return platform::_wcstoi64(text, nullptr, 10);
    }
    static bool PartsAreGood(int64 literal) {
        return literal / 100000000000 <= 23 && literal / 1000000000 % 100 <= 59 && literal / 10000000 % 100 <= 59;
    }
    static int64 TicksOfLiteral(int64 literal) {
        const int64 hours = literal / 100000000000;
        const int64 minutes = literal / 1000000000 % 100;
        return (hours * 60 + minutes) * 600000000 + literal % 1000000000;
    }

    static std::optional<int64> ReadSpanLiteral(const wchar16* text) {
        const bool isNegative = text[0] == '-';
        if (isNegative || text[0] == '+') ++text;
        const std::size_t length = platform::wcslen(text);
        if (length < 14 || platform::wcsspn(text, Digits) != length) return std::nullopt;
        const double days = std::stod(Narrow(text, length - 13));
        if (days > 2147483647) return std::nullopt;
        const int64 time = std::stoll(Narrow(text + length - 13, 13));
        const int64 ticksOfTime = time / 100000000000 * 36000000000 + time / 1000000000 % 100 * 600000000 +
                                  time / 10000000 % 100 * 10000000 + time % 10000000;
        // Where the product of the days leaves 64 bits, what is left of it counts, if it has the sign.
        const auto product = static_cast<int64>(static_cast<uint64>(days) * 864000000000u);
        if (product < 0 || product > std::numeric_limits<int64>::max() - ticksOfTime) {
            // Only the very lowest span has no counterpart.
            const bool isLowest = isNegative && product >= 0 &&
                                  static_cast<uint64>(product) + static_cast<uint64>(ticksOfTime) == uint64{1} << 63;
            return isLowest ? std::optional<int64>(std::numeric_limits<int64>::min()) : std::nullopt;
        }
        return isNegative ? -(product + ticksOfTime) : product + ticksOfTime;
    }
    static std::string Narrow(const wchar16* text, std::size_t count) { return std::string(text, text + count); }

    static bool Copy(const wchar16* text, wchar16* buffer) {
        if (platform::wcslen(text) >= 100) return false;
        strcpyn(buffer, text, 100);
        for (wchar16* unit = buffer; *unit != 0; ++unit) *unit = platform::towlower(*unit);
        ltrim(buffer);
        rtrim(buffer);
        return true;
    }

    // Takes so many units away from the beginning.
    static void Drop(wchar16* rest, std::size_t count) {
        while (count-- > 0) {
            for (wchar16* unit = rest; *unit != 0; ++unit) unit[0] = unit[1];
        }
    }

    bool ReadFields(wchar16* rest, int32& hours, int32& minutes, double& seconds) const {
        wchar16* end;
        hours = platform::wcstol(rest, &end, 10);
        Drop(rest, static_cast<std::size_t>(end - rest));
        ltrim(rest);

        std::size_t count = platform::wcsspn(rest, habits.separator);
        if (count != 0) {
            if (count != platform::wcslen(habits.separator)) return false;
            if (platform::wcsncmp(habits.separator, rest, count) != 0) return false;
            Drop(rest, count);
            ltrim(rest);
            minutes = platform::wcstol(rest, &end, 10);
            Drop(rest, static_cast<std::size_t>(end - rest));
            ltrim(rest);
        }

        count = platform::wcsspn(rest, habits.separator2);
        if (count != 0) {
            if (count != platform::wcslen(habits.separator2)) return false;
            if (platform::wcsncmp(habits.separator2, rest, count) != 0) return false;
            Drop(rest, count);
            ltrim(rest);
            seconds = platform::ReadDouble(rest, &end, '.', platform::NumberForms::All);
            Drop(rest, static_cast<std::size_t>(end - rest));
            ltrim(rest);
        }
        return true;
    }

    void SkipMark(wchar16* rest, bool& found, bool& isPm) const {
        wstring16 set = wstring16(habits.am) + habits.pm + ZUTEXT(" ");
        for (wchar16& unit : set) unit = platform::towlower(unit);
        const std::size_t count = platform::wcsspn(rest, set.c_str());
        wchar16 run[100] = {};
        strcpyn(run, rest, count + 1);
        ltrim(run);
        rtrim(run);
        const wchar16 first = platform::towlower(run[0]);
        if (run[0] == 0) {
            found = false;
        } else if (platform::_wcsicmp(run, habits.am) == 0) {
            found = true;
            isPm = false;
        } else if (platform::_wcsicmp(run, habits.pm) == 0) {
            found = true;
            isPm = true;
        } else if (run[1] == 0 && first == platform::towlower(habits.am[0])) {
            found = true;
            isPm = false;
        } else if (run[1] == 0 && first == platform::towlower(habits.pm[0])) {
            found = true;
            isPm = true;
        }
        Drop(rest, count);
        ltrim(rest);
    }

    const TimeHabits& habits;
};

}  // namespace Torvo::test
