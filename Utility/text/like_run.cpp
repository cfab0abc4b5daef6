// The pattern match behind a run, for parts that begin with a plain unit.
//
// The first unit of a part is looked for in the text, eight units at a time, and what follows it is compared unit by
// unit: most parts are short, and most of them stand where their first unit does. The first place where a part stands
// is as good as any (see like_steps.cpp). Whatever may join another unit, on either side, leaves the match to the
// careful steps, from the run on that was met last, and so does a part that is hard to find.
//
// Places are passed by reference, so that they stay in registers.

#include <Utility/text/like_match.h>
#include <Utility/text/like_scan.h>

namespace Torvo::like {

namespace {

enum class Outcome {
    MetRun,     // the part stands here, and a run ends it
    Match,      // both ended
    Differs,    // another place may do
    TextEnded,  // none will
    Unknown,    // it takes a closer look
};

// Compares the text with a part, to the end of the part.
Outcome Compare(const wchar16*& text, const wchar16*& pattern, EscapeUnit escape) {
    for (;; ++text, ++pattern) {
        wchar16 unit = *pattern;
        if (unit == *text && unit != 0 && unit != escape && unit != anyRun && !Joins(unit)) continue;
        // Also where it is the escape character: what joins the unit before it escapes nothing.
        if (Joins(*text) || Joins(unit)) return Outcome::Unknown;
        if (unit == 0) return *text == 0 ? Outcome::Match : Outcome::Differs;
        if (unit == escape) {
            unit = *++pattern;
            if (!MayBeEscaped(unit, escape)) return Outcome::Unknown;
        } else if (unit == anyRun) {
            return Outcome::MetRun;
        } else if (unit == anyOne) {
            if (*text == 0) return Outcome::TextEnded;
            continue;
        }
        if (*text != unit) return *text == 0 ? Outcome::TextEnded : Outcome::Differs;
    }
}

// Goes on behind a run, to the first place where the part stands.
Outcome FindPart(const wchar16*& text, const wchar16*& pattern, EscapeUnit escape) {
    constexpr int easyTries = 2;
    const wchar16* const part = pattern;
    if (Joins(*part)) return Outcome::Unknown;
    const bool isEscaped = *part == escape;
    const wchar16* const first = part + isEscaped;
    if (isEscaped ? !MayBeEscaped(*first, escape) : *first == anyRun || *first == anyOne) return Outcome::Unknown;
    const platform::scan::EitherOf isStop(*first, 0);
    for (int tries = 0;; ++tries) {
        const bool isEasy = tries < easyTries;
        text = isEasy ? platform::scan::FindFirst(text, isStop) : NextPlace(text, part, escape);
        if (*text == 0) return Outcome::TextEnded;
        const wchar16* at = text + isEasy;
        pattern = isEasy ? first + 1 : part;
        const Outcome outcome = Compare(at, pattern, escape);
        if (outcome != Outcome::Differs) {
            text = at;
            return outcome;
        }
        if (tries == easyTries - 1 && (isEscaped || IsLastPart(part, escape))) return Outcome::Unknown;
        ++text;
    }
}

}  // namespace

bool MatchRun(const wchar16* text, const wchar16* pattern, EscapeUnit escape, bool* match) {
    while (pattern[1] != 0) {
        const wchar16* at = text;
        const wchar16* part = pattern + 1;
        const Outcome outcome = FindPart(at, part, escape);
        if (outcome == Outcome::Unknown) return MatchSteps(text, pattern, escape, match);
        if (outcome != Outcome::MetRun) {
            *match = outcome == Outcome::Match;
            return true;
        }
        text = at;
        pattern = part;
    }
    *match = true;
    return true;
}

}  // namespace Torvo::like
