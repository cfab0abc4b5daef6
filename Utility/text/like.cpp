// The pattern match of SQL: what the units up to the first run decide.

#include <Utility/text/like_match.h>
#include <Utility/text/like_scan.h>
#include <Utility/text_tools.h>

namespace Torvo {

namespace {

using like::anyOne;
using like::anyRun;
using like::EscapeUnit;

// Whether the very first units tell already that there is no match.
bool DifferAtOnce(const wchar16* text, const wchar16* pattern, EscapeUnit escape) {
    return *pattern != *text && *pattern != anyRun && *pattern != anyOne && *pattern != escape;
}

// Steps over the units that take each other on both sides. What comes then decides, or it is a run, unless one of the
// two may join the last unit to a character, or the pattern has anything else there.
bool Match(const wchar16* text, const wchar16* pattern, EscapeUnit escape, bool* match) {
    const std::size_t count = like::Taker(escape).Count(text, pattern);
    text += count;
    pattern += count;
    if (!like::Joins(*text)) {
        if (*pattern == anyRun && escape != anyRun) return like::MatchRun(text, pattern, escape, match);
        if (*pattern == 0 || like::IsPlain(*pattern, escape)) {
            *match = *pattern == 0 && *text == 0;
            return true;
        }
    }
    const std::size_t back = count != 0 ? 1 : 0;
    return like::MatchSteps(text - back, pattern - back, escape, match);
}

// Whether a plain unit takes the first one of the text, and a run follows.
bool TakesOneAheadOfRun(const wchar16* text, const wchar16* pattern, EscapeUnit escape) {
    if (*pattern == 0 || pattern[1] != anyRun || escape == anyRun) return false;
    return *pattern == *text && like::IsPlain(*pattern, escape) && !like::Joins(text[1]);
}

}  // namespace

bool Like(const wchar16* text, const wchar16* pattern, const wchar16* escape, bool* match) {
    if (match == nullptr) return false;
    *match = false;
    if (text == nullptr || pattern == nullptr) return true;
    const EscapeUnit escapeUnit = escape != nullptr ? *escape : 0;
    if (*pattern == anyRun && escapeUnit != anyRun) return like::MatchRun(text, pattern, escapeUnit, match);
    if (DifferAtOnce(text, pattern, escapeUnit)) return true;
    // All that begins with a letter is often asked for, and takes less than a look at sixteen units.
    if (TakesOneAheadOfRun(text, pattern, escapeUnit)) {
        return like::MatchRun(text + 1, pattern + 1, escapeUnit, match);
    }
    return Match(text, pattern, escapeUnit, match);
}

}  // namespace Torvo
