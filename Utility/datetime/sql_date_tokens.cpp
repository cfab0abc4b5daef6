#include <Utility/datetime/sql_date_tokens.h>
#include <Utility/platform/text_scan.h>
#include <Utility/strings.h>

#include <algorithm>
#include <string_view>

namespace Torvo {

namespace {

using TextView = std::basic_string_view<wchar16>;

const wstring16& Delimiters() {
    static const wstring16 delimiters = ZUTEXT(" \t\n`~!@#$%^&*()-+=[]{}:;<>,.|/\\");
    return delimiters;
}

constexpr wchar16 QuotePairs[] = ZUTEXT("\"\"''");

// A piece of these letters alone is cut between runs of the first six.
constexpr TextView RunLetters = ZUTEXT("DMYdmy");
constexpr TextView FormatLetters = ZUTEXT("DMYdmyHfhst");

bool IsRunLetter(wchar16 unit) {
    return RunLetters.find(unit) != TextView::npos;
}

// The end of the part that begins at `start`: a run of one letter, or what stands before the next such run.
std::size_t PartEnd(TextView piece, std::size_t start) {
    if (IsRunLetter(piece[start])) return std::min(piece.find_first_not_of(piece[start], start), piece.size());
    return std::min(piece.find_first_of(RunLetters, start), piece.size());
}

void AddPiece(TextView piece, std::vector<wstring16>& tokens) {
    if (piece.empty()) return;
    if (piece.find_first_not_of(FormatLetters) != TextView::npos) {
        tokens.emplace_back(piece);
        return;
    }
    for (std::size_t start = 0; start < piece.size();) {
        const std::size_t end = PartEnd(piece, start);
        tokens.emplace_back(piece.substr(start, end - start));
        start = end;
    }
}

}  // namespace

SqlDateWord SqlDateWordOf(const wstring16& token) {
    constexpr std::size_t LongestWord = 4;
    if (token.size() > LongestWord) return SqlDateWord::Literal;
    const wchar16 letter = platform::scan::FoldUnit(token[0]);
    for (const wchar16 unit : token) {
        if (platform::scan::FoldUnit(unit) != letter) return SqlDateWord::Literal;
    }
    constexpr SqlDateWord Months[] = {SqlDateWord::Month, SqlDateWord::Month2, SqlDateWord::ShortMonthName,
                                      SqlDateWord::MonthName};
    constexpr SqlDateWord Days[] = {SqlDateWord::Day, SqlDateWord::Day2, SqlDateWord::ShortDayName,
                                    SqlDateWord::DayName};
    constexpr SqlDateWord Years[] = {SqlDateWord::Literal, SqlDateWord::Year2, SqlDateWord::Literal, SqlDateWord::Year};
    switch (letter) {
        case 'm':
            return Months[token.size() - 1];
        case 'd':
            return Days[token.size() - 1];
        case 'y':
            return Years[token.size() - 1];
        default:
            return SqlDateWord::Literal;
    }
}

// Delimiters are pieces too: those between the last position and the token, and what lies between the token and the
// next position. Those behind the last position at which the tokenizer finds anything are dropped.
std::vector<wstring16> SplitSQLDateTokens(const wstring16& text) {
    std::vector<wstring16> tokens;
    const TextView view = text;
    uint64 position = 0;
    uint64 start;
    uint64 length;
    uint64 next;
    while (position < text.size() && zuStrtok(text, position, Delimiters(), &start, &length, &next, QuotePairs)) {
        next = std::min(next, uint64{text.size()});
        AddPiece(view.substr(position, start - position), tokens);
        AddPiece(view.substr(start, length), tokens);
        AddPiece(view.substr(start + length, next - start - length), tokens);
        position = next;
    }
    return tokens;
}

}  // namespace Torvo
