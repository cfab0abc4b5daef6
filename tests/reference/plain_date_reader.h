// The readers of dates in their plain form, one step after the other, on the C library's numbers.
#pragma once

#include <Utility/dates.h>
#include <reference/plain_calendar.h>
#include <support/dates.h>

#include <algorithm>
#include <cstdio>
#include <string>

namespace Torvo::test {

class PlainDateReader {
public:
    PlainDateReader(int16 localeOrder, wchar16 localeSeparator, bool fixed)
        : order(localeOrder), separator(localeSeparator), isFixed(fixed) {}

    // The date as Told tells it, or "null".
    std::string Read(const wstring16& given) const {
        errors.clear();
        text = given;
        if (DigitsToDate(given)) return Told(date);
        if (given.size() == 10 && ReadIso()) return Told(date);
        if (isFixed) return ReadFixed() ? Told(date) : "null";
        std::size_t end = NoEnd;
        return ReadOrdered(false, &end) ? Told(date) : "null";
    }

    // The same, and "end" with the index of the end, or "no end".
    std::string ReadEx(const wstring16& given) const {
        errors.clear();
        text = given;
        std::size_t end = NoEnd;
        bool isRead = DigitsToDate(given);
        if (isRead) {
            end = given.size();
        } else {
            isRead = ReadOrdered(true, &end);
        }
        return (isRead ? Told(date) : "null") + (end != NoEnd ? " end " + std::to_string(end) : " no end");
    }

    const std::string& Errors() const { return errors; }

private:
    static constexpr std::size_t NoEnd = static_cast<std::size_t>(-1);

    bool DigitsToDate(const wstring16& digits) const {
        if (digits.size() != 8 || digits.find_first_not_of(ZUTEXT("0123456789")) != wstring16::npos) return false;
        const int literal = std::stoi(std::string(digits.begin(), digits.end()));
        date = {static_cast<int16>(literal / 10000), static_cast<int8>(literal / 100 % 100),
                static_cast<int8>(literal % 100)};
        if (literal == 0 || (date.month >= 1 && date.month <= 12 && date.day >= 1 &&
                             date.day <= PlainDaysInMonth(date.month, date.year))) {
            return true;
        }
        errors += BadDateError;
        return false;
    }

    // The unit at an index; 0 behind the text.
    wchar16 At(std::size_t index) const { return index < text.size() ? text[index] : wchar16{0}; }

    // The texts of the test have the digits 0 to 9 and one of another script, white space, signs and no long numbers.
    int64 Number(std::size_t* index) const {
        std::size_t at = *index;
        while (At(at) == ' ' || At(at) == '\t') ++at;
        const bool negative = At(at) == '-';
        if (At(at) == '-' || At(at) == '+') ++at;
        int64 value = 0;
        bool hasDigit = false;
        for (;; ++at) {
            const int64 digit = At(at) == 0xFF12 ? 2 : At(at) >= '0' && At(at) <= '9' ? At(at) - '0' : -1;
            if (digit < 0) break;
            hasDigit = true;
            value = std::min(value * 10 + digit, int64{2147483647});
        }
        if (hasDigit) *index = at;
        while (At(*index) == ' ') ++*index;
        return negative && hasDigit ? -value : value;
    }

    bool ReadIso() const {
        std::size_t at = 0;
        const int64 year = Number(&at);
        char digits[32];
        if (At(at++) != '-' || year > 9999 || std::snprintf(digits, sizeof digits, "%d", static_cast<int>(year)) != 4) {
            return false;
        }
        std::string literal = digits;
        const int64 month = Number(&at);
        if (At(at++) != '-' || month < 1 || month > 12) return false;
        const int64 day = Number(&at);
        if (At(at) != 0 || day < 1 || day > 31) return false;
        std::snprintf(digits, sizeof digits, "%02d%02d", static_cast<int>(month), static_cast<int>(day));
        literal += digits;
        return DigitsToDate(wstring16(literal.begin(), literal.end()));
    }

    static int64 ExpandYear(int64 year) {
        zuDATE today;
        if (year >= 0 && year <= 99) return year + SystemDate(&today)->year / 100 * 100;
        return year < 0 || year > 9999 ? 0 : year;
    }

    bool Check(int64 year, int64 month, int64 day) const {
        if (month < 1 || month > 12) return false;
        year = ExpandYear(year);
        if (year == 0 || day < 1 || day > PlainDaysInMonth(static_cast<int>(month), static_cast<int>(year)))
            return false;
        date = {static_cast<int16>(year), static_cast<int8>(month), static_cast<int8>(day)};
        return true;
    }

    bool ReadOrdered(bool withEnd, std::size_t* end) const {
        const int16 usedOrder = isFixed ? int16{0} : order;
        const wchar16 usedSeparator = isFixed ? wchar16{'/'} : separator;
        std::size_t at = 0;
        const int64 a = Number(&at);
        if (At(at++) != usedSeparator) return false;
        const int64 b = Number(&at);
        const wchar16 next = At(at++);
        if (next != usedSeparator) {
            if (next != 0 && !withEnd) return false;
            if (withEnd) *end = at;
            zuDATE today;
            const int64 year = SystemDate(&today)->year;
            if (usedOrder == 0 || usedOrder == 2) return Check(year, a, b);
            return (usedOrder == 1 || usedOrder == 5) && Check(year, b, a);
        }
        const int64 c = Number(&at);
        if (withEnd) *end = at;
        if (At(at) != 0 && !withEnd) return false;
        switch (usedOrder) {
            case 0:
                return Check(c, a, b);
            case 1:
                return Check(c, b, a);
            case 2:
                return Check(a, b, c);
            case 5:
                return Check(a, c, b);
            default:
                return false;
        }
    }

    bool ReadFixed() const {
        std::size_t at = 0;
        const int64 month = Number(&at);
        const wchar16 used = At(at++);
        if (used != '-' && used != '/') return false;
        const int64 day = Number(&at);
        zuDATE today;
        int64 year = SystemDate(&today)->year;
        if (At(at) == used) {
            ++at;
            year = Number(&at);
        }
        return At(at) == 0 && Check(year, month, day);
    }

    const int16 order;
    const wchar16 separator;
    const bool isFixed;
    mutable wstring16 text;
    mutable zuDATE date{};
    mutable std::string errors;
};

}  // namespace Torvo::test
