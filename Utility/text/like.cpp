// The pattern match of SQL, without recursion.
//
// A pattern is a row of parts with a run of any characters ("%") between each two. A part takes a fixed number of
// characters, so the first place where it stands in the text leaves most for what follows: if what follows fails from
// there, it fails from every later place too. So only the last run that was met is ever taken up again, and with it the
// work is at most the product of the two lengths. The same holds for a bad escape, which ends everything at its first
// touch: it lies in some part, and the places at which that part is tried come in the same order.
//
// Text that ends inside a part ends everything as well, since the part finds even less text at any later place.
//
// What takes eight units at a time (like_scan.h) only saves time. Without it each element of the pattern is taken by
// itself, at each character of the text.

#include <Utility/errors/raise.h>
#include <Utility/text/like_scan.h>
#include <Utility/text/next_character.h>
#include <Utility/text_tools.h>

namespace Torvo {

namespace {

using like::anyOne;
using like::anyRun;
using like::EscapeUnit;

enum class Kind { Literal, AnyOne, AnyRun, End, BadEscape };

// What stands at one place of a pattern.
struct Element {
    Kind kind;
    wchar16 unit;  // of a literal
    const wchar16* next;
};

Element Read(const wchar16* pattern, EscapeUnit escape) {
    if (*pattern == 0) return {Kind::End, 0, pattern};
    const wchar16* const next = NextCharacter(pattern);
    if (*pattern == escape) {
        const bool isGood = *next == anyRun || *next == anyOne || *next == escape;
        return isGood ? Element{Kind::Literal, *next, NextCharacter(next)} : Element{Kind::BadEscape, 0, next};
    }
    if (*pattern == anyRun) return {Kind::AnyRun, 0, next};
    if (*pattern == anyOne) return {Kind::AnyOne, 0, next};
    return {Kind::Literal, *pattern, next};
}

// How far a match has come.
struct Progress {
    const wchar16* text;
    const wchar16* pattern;
};

// Steps over units that take each other on both sides. If what comes then on either side may join the last unit to a
// character, that unit is left for the careful steps.
void StepOverTaken(Progress& at, EscapeUnit escape) {
    std::size_t count = like::CountTaken(at.text, at.pattern, escape);
    if (count == 0) return;
    if (at.text[count] >= firstJoiningUnit || at.pattern[count] >= firstJoiningUnit) --count;
    at.text += count;
    at.pattern += count;
}

enum class Outcome {
    Match,       // both ended
    Differs,     // another place in the text may do
    TextEnded,   // none will
    MetRun,      // the part stands here; the pattern is behind the run that ends it
    BadPattern,  // a bad escape
};

// Compares the text with the pattern up to the next run.
Outcome ComparePart(Progress& at, EscapeUnit escape) {
    for (;;) {
        StepOverTaken(at, escape);
        const Element element = Read(at.pattern, escape);
        at.pattern = element.next;
        switch (element.kind) {
            case Kind::AnyRun:
                return Outcome::MetRun;
            case Kind::End:
                return *at.text == 0 ? Outcome::Match : Outcome::Differs;
            case Kind::BadEscape:
                return Outcome::BadPattern;
            case Kind::Literal:
                if (*at.text == element.unit) break;
                return *at.text == 0 ? Outcome::TextEnded : Outcome::Differs;
            case Kind::AnyOne:
                if (*at.text == 0) return Outcome::TextEnded;
                break;
        }
        at.text = NextCharacter(at.text);
    }
}

// Goes on behind a run: to the first place where the next part stands, and behind it.
Outcome FindPart(Progress& at, EscapeUnit escape) {
    const wchar16* const part = at.pattern;
    if (*part == 0) return Outcome::Match;
    const like::PartStart start(part, escape);
    for (const wchar16* place = at.text;; place = NextCharacter(place)) {
        place = start.Find(place);
        // Also right behind the run: at the end of the text it matches only if it ends the pattern.
        if (*place == 0) return Outcome::TextEnded;
        at = {place, part};
        const Outcome outcome = ComparePart(at, escape);
        if (outcome != Outcome::Differs) return outcome;
    }
}

// Whether the very first units tell already that there is no match.
bool DifferAtOnce(const wchar16* text, const wchar16* pattern, EscapeUnit escape) {
    return *pattern != *text && *pattern != anyRun && *pattern != anyOne && *pattern != escape;
}

}  // namespace

bool Like(const wchar16* text, const wchar16* pattern, const wchar16* escape, bool* match) {
    if (match == nullptr) return false;
    *match = false;
    if (text == nullptr || pattern == nullptr) return true;
    const EscapeUnit escapeUnit = escape != nullptr ? *escape : 0;
    if (DifferAtOnce(text, pattern, escapeUnit)) return true;
    Progress at{text, pattern};
    Outcome outcome = ComparePart(at, escapeUnit);
    while (outcome == Outcome::MetRun) outcome = FindPart(at, escapeUnit);
    *match = outcome == Outcome::Match;
    if (outcome != Outcome::BadPattern) return true;
    RaiseError(ERRORLEVEL_ERROR, 19, 61);
    return false;
}

}  // namespace Torvo
