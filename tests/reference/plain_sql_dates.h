// The date formats in their plain form: cutting, printing and reading, one step after the other, with English names and
// with the digits 0 to 9 for numbers.
#pragma once

#include <Utility/dates.h>
#include <reference/plain_tokenizers.h>
#include <support/dates.h>

#include <algorithm>
#include <string>
#include <vector>

namespace Torvo::test {

class PlainSqlDates {
public:
    static std::vector<wstring16> Cut(const wstring16& text) {
        std::vector<wstring16> pieces;
        uint64 position = 0;
        while (position != wstring16::npos) {
            const PositionToken token =
                PlainPositionToken(text, position, ZUTEXT(" \t\n`~!@#$%^&*()-+=[]{}:;<>,.|/\\"), ZUTEXT("\"\"''"));
            if (!token.found) break;
            const uint64 end = token.start + token.length;
            Classify(text.substr(position, token.start - position), pieces);
            Classify(text.substr(token.start, token.length), pieces);
            Classify(text.substr(end, token.next == wstring16::npos ? token.next : token.next - end), pieces);
            position = token.next;
        }
        return pieces;
    }

    static wstring16 Print(const zuDATE& date, const wstring16& format) {
        wstring16 text;
        for (const wstring16& piece : Cut(format)) text += Part(date, piece);
        return text;
    }

    // The date as Told tells it, or the error as TakeDateErrors does.
    static std::string Read(const wstring16& text, const wstring16& format) {
        const std::vector<wstring16> pieces = Cut(text);
        const std::vector<wstring16> words = Cut(format);
        if (pieces.size() != words.size()) return Error(64, format);
        zuDATE date{};
        for (std::size_t i = 0; i < pieces.size(); ++i) {
            const std::string error = Take(words[i], pieces[i], format, date);
            if (!error.empty()) return error;
        }
        return Told(date);
    }

private:
    static constexpr const wchar16* Months[] = {ZUTEXT("January"), ZUTEXT("February"), ZUTEXT("March"),
                                                ZUTEXT("April"),   ZUTEXT("May"),      ZUTEXT("June"),
                                                ZUTEXT("July"),    ZUTEXT("August"),   ZUTEXT("September"),
                                                ZUTEXT("October"), ZUTEXT("November"), ZUTEXT("December")};
    static constexpr const wchar16* Days[] = {ZUTEXT("Monday"),   ZUTEXT("Tuesday"), ZUTEXT("Wednesday"),
                                              ZUTEXT("Thursday"), ZUTEXT("Friday"),  ZUTEXT("Saturday"),
                                              ZUTEXT("Sunday")};

    static void Classify(const wstring16& piece, std::vector<wstring16>& pieces) {
        if (piece.empty()) return;
        if (piece.find_first_not_of(ZUTEXT("DHMYdfhmsty")) != wstring16::npos) {
            pieces.push_back(piece);
            return;
        }
        wstring16 gathered;
        const auto add = [&] {
            if (!gathered.empty()) pieces.push_back(gathered);
            gathered.clear();
        };
        for (std::size_t at = 0; at < piece.size();) {
            const wchar16 letter = piece[at];
            if (!PlainContains(ZUTEXT("DMYdmy"), letter)) {
                gathered += letter;
                ++at;
                continue;
            }
            add();
            for (; at < piece.size() && piece[at] == letter; ++at) gathered += letter;
            add();
        }
        add();
    }

    static wstring16 Lower(wstring16 text) {
        for (wchar16& unit : text) {
            if (unit >= 'A' && unit <= 'Z') unit = static_cast<wchar16>(unit + 32);
        }
        return text;
    }

    static wstring16 Decimal(int value) {
        const std::string digits = std::to_string(value);
        return wstring16(digits.begin(), digits.end());
    }

    static wstring16 TwoDigits(int value) {
        const wstring16 digits = Decimal(value);
        return digits.size() == 2 ? digits : ZUTEXT("0") + digits;
    }

    static wstring16 Month(const zuDATE& date) {
        if (date.month == 13) return {};
        return Months[date.month >= 2 && date.month <= 12 ? date.month - 1 : 0];
    }

    static wstring16 Day(const zuDATE& date) {
        const int weekday = (MDY2Days(&date) + 1) % 7;
        return Days[weekday >= 1 && weekday <= 6 ? weekday - 1 : 6];
    }

    static wstring16 Part(const zuDATE& date, const wstring16& piece) {
        const wstring16 word = Lower(piece);
        if (word == ZUTEXT("mmmm")) return Month(date);
        if (word == ZUTEXT("mmm")) return Month(date).substr(0, 3);
        if (word == ZUTEXT("dddd")) return Day(date);
        if (word == ZUTEXT("ddd")) return Day(date).substr(0, 3);
        if (word == ZUTEXT("mm")) return TwoDigits(date.month);
        if (word == ZUTEXT("m")) return Decimal(date.month);
        if (word == ZUTEXT("dd")) return TwoDigits(date.day);
        if (word == ZUTEXT("d")) return Decimal(date.day);
        if (word == ZUTEXT("yyyy")) return Decimal(date.year);
        if (word == ZUTEXT("yy")) {
            const wstring16 year = Decimal(date.year);
            return year.size() > 2 ? year.substr(2, 2) : wstring16();
        }
        return piece;
    }

    static std::string Error(int resource, const wstring16& first, const wstring16& second = {}) {
        return std::to_string(resource) + '(' + std::string(first.begin(), first.end()) + ", " +
               std::string(second.begin(), second.end()) + ") ";
    }

    static int64 Number(const wstring16& text) {
        std::size_t at = 0;
        while (at < text.size() && PlainContains(ZUTEXT(" \t\n\v\f\r"), text[at])) ++at;
        const bool negative = at < text.size() && text[at] == '-';
        if (at < text.size() && (text[at] == '-' || text[at] == '+')) ++at;
        int64 value = 0;
        for (; at < text.size() && text[at] >= '0' && text[at] <= '9'; ++at) {
            value = std::min(value * 10 + (text[at] - '0'), int64{2147483648});
        }
        return negative ? -value : std::min(value, int64{2147483647});
    }

    static int8 MonthOf(const wstring16& piece, std::size_t letters) {
        for (std::size_t i = 0; i < std::size(Months); ++i) {
            if (Lower(wstring16(Months[i]).substr(0, letters)) == Lower(piece)) return static_cast<int8>(i + 1);
        }
        return 0;
    }

    // Empty, or the error.
    static std::string Take(const wstring16& formatPiece, const wstring16& piece, const wstring16& format,
                            zuDATE& date) {
        const wstring16 word = Lower(formatPiece);
        if (word == ZUTEXT("mmmm") || word == ZUTEXT("mmm")) {
            const bool isFull = word.size() == 4;
            const int8 month = MonthOf(piece, isFull ? wstring16::npos : 3);
            if (month == 0) return Error(isFull ? 65 : 66, piece);
            date.month = month;
        } else if (word == ZUTEXT("mm") || word == ZUTEXT("m")) {
            date.month = static_cast<int8>(Number(piece));
        } else if (word == ZUTEXT("dd") || word == ZUTEXT("d")) {
            date.day = static_cast<int8>(Number(piece));
        } else if (word == ZUTEXT("yyyy")) {
            date.year = static_cast<int16>(Number(piece));
        } else if (word == ZUTEXT("yy")) {
            const auto year = static_cast<int16>(Number(piece));
            date.year = static_cast<int16>(year + (year >= 51 ? 1900 : 2000));
        } else if (word != ZUTEXT("dddd") && word != ZUTEXT("ddd") && word != Lower(piece)) {
            return Error(63, piece, format);
        }
        return {};
    }
};

}  // namespace Torvo::test
