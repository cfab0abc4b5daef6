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
// What takes sixteen units at a time (like_scan.h) only saves time. Without it each element of the pattern is taken by
// itself, at each character of the text.

#include <Utility/errors/raise.h>
#include <Utility/platform/runtime.h>
#include <Utility/text/like_match.h>
#include <Utility/text/like_scan.h>

#include <algorithm>

namespace Torvo::like {

namespace {

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
        return MayBeEscaped(*next, escape) ? Element{Kind::Literal, *next, NextCharacter(next)}
                                           : Element{Kind::BadEscape, 0, next};
    }
    if (*pattern == anyRun) return {Kind::AnyRun, 0, next};
    if (*pattern == anyOne) return {Kind::AnyOne, 0, next};
    return {Kind::Literal, *pattern, next};
}

enum class Outcome {
    Match,       // both ended
    Differs,     // another place in the text may do
    TextEnded,   // none will
    MetRun,      // the part stands here; the pattern is behind the run that ends it
    BadPattern,  // a bad escape
};

// Compares the text with the pattern up to the next run, and moves both to where that ends. (Places are passed by
// reference, so that they stay in registers.)
class PartComparer {
public:
    explicit PartComparer(EscapeUnit escape) : escape_(escape), taker_(escape) {}

    Outcome Compare(const wchar16*& text, const wchar16*& pattern) const {
        for (;;) {
            const std::size_t count = taker_.Count(text, pattern);
            text += count;
            pattern += count;
            const bool joinsText = Joins(*text);
            if (*pattern == anyRun && escape_ != anyRun && !joinsText) {
                pattern = NextCharacter(pattern);
                return Outcome::MetRun;
            }
            // What comes on either side may join the last unit to a character: that is left for the careful steps.
            if (count != 0 && (joinsText || Joins(*pattern))) {
                --text;
                --pattern;
            }
            const Element element = Read(pattern, escape_);
            switch (element.kind) {
                case Kind::AnyRun:
                    pattern = element.next;
                    return Outcome::MetRun;
                case Kind::End:
                    return *text == 0 ? Outcome::Match : Outcome::Differs;
                case Kind::BadEscape:
                    return Outcome::BadPattern;
                case Kind::Literal:
                    if (*text == element.unit) break;
                    return *text == 0 ? Outcome::TextEnded : Outcome::Differs;
                case Kind::AnyOne:
                    if (*text == 0) return Outcome::TextEnded;
                    break;
            }
            text = NextCharacter(text);
            pattern = element.next;
        }
    }

private:
    EscapeUnit escape_;
    Taker taker_;
};

// The last part of a pattern can stand at the end of the text alone. Where each character there is one unit, that place
// is known, and nothing ahead of it matters; Differs where it is not.
Outcome CompareLastPart(const wchar16* text, const wchar16* part, EscapeUnit escape) {
    const std::size_t count = CountToEnd(part, escape);
    if (count == 0) return Outcome::Differs;
    const wchar16* const end = text + platform::wcslen(text);
    if (static_cast<std::size_t>(end - text) < count) return Outcome::TextEnded;
    const wchar16* const place = end - count;
    if (Taker(escape).Count(place, part) == count) return Outcome::Match;
    return std::any_of(place, end, Joins) ? Outcome::Differs : Outcome::TextEnded;
}

// Goes on behind a run: to the first place where the part stands, and behind it.
template <typename Find>
Outcome FindPart(const wchar16*& text, const wchar16*& pattern, const PartComparer& comparer, EscapeUnit escape,
                 Find find) {
    const wchar16* const part = pattern;
    for (bool isFirst = true;; isFirst = false) {
        text = find(text);
        // Also right behind the run: at the end of the text it matches only if it ends the pattern.
        if (*text == 0) return Outcome::TextEnded;
        const wchar16* const place = text;
        pattern = part;
        const Outcome outcome = comparer.Compare(text, pattern);
        if (outcome != Outcome::Differs) return outcome;
        if (isFirst) {
            const Outcome last = CompareLastPart(place, part, escape);
            if (last != Outcome::Differs) return last;
        }
        text = NextCharacter(place);
    }
}

Outcome Match(const wchar16* text, const wchar16* pattern, EscapeUnit escape) {
    const PartComparer comparer(escape);
    Outcome outcome = comparer.Compare(text, pattern);
    while (outcome == Outcome::MetRun) {
        if (*pattern == 0) return Outcome::Match;
        if (IsPlain(*pattern, escape)) {
            const PartStart start(pattern, escape);
            outcome =
                FindPart(text, pattern, comparer, escape, [&](const wchar16* place) { return start.Find(place); });
        } else {
            outcome = FindPart(text, pattern, comparer, escape, [&](const wchar16* place) { return place; });
        }
    }
    return outcome;
}

}  // namespace

const wchar16* NextPlace(const wchar16* text, const wchar16* part, EscapeUnit escape) {
    return PartStart(part, escape).Find(text);
}

bool IsLastPart(const wchar16* part, EscapeUnit escape) {
    return CountToEnd(part, escape) != 0;
}

bool MatchSteps(const wchar16* text, const wchar16* pattern, EscapeUnit escape, bool* match) {
    const Outcome outcome = Match(text, pattern, escape);
    *match = outcome == Outcome::Match;
    if (outcome != Outcome::BadPattern) return true;
    RaiseError(ERRORLEVEL_ERROR, 19, 61);
    return false;
}

}  // namespace Torvo::like
