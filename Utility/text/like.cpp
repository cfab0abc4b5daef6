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
// Three functions only save time: StepOverEqual, PartStart and what is made of it. Without them each element of the
// pattern is taken by itself, at each character of the text.

#include <Utility/errors/raise.h>
#include <Utility/platform/runtime.h>
#include <Utility/text/next_character.h>
#include <Utility/text/unit_lanes.h>
#include <Utility/text_tools.h>

#include <algorithm>

namespace Torvo {

namespace {

constexpr wchar16 anyRun = '%';
constexpr wchar16 anyOne = '_';

enum class Kind { Literal, AnyOne, AnyRun, End, BadEscape };

// What stands at one place of a pattern.
struct Element {
    Kind kind;
    wchar16 unit;  // of a literal
    const wchar16* next;
};

// The first one or two literals of a part, to look for it in the text. A unit that joins nothing always begins a
// character, so it may be found without walking.
class PartStart {
public:
    PartStart() = default;
    // For a part that begins with that unit, and for one with another behind it.
    explicit PartStart(wchar16 first) : first_(first), hasFirst_(true) {}
    PartStart(wchar16 first, wchar16 second) : first_(first), second_(second), hasFirst_(true), hasSecond_(true) {}

    // The first place from `at` on, and before `end`, where the part may stand, or `end`. `begin` is where the text may
    // be read from; its terminator is at `end`.
    const wchar16* Find(const wchar16* begin, const wchar16* at, const wchar16* end) const {
        if (!hasFirst_) return at;
        for (; end - at >= lanes::Count; at += lanes::Count) {
            const uint32 bits = Candidates(at);
            if (bits != 0) return at + lanes::First(bits);
        }
        if (end - begin >= lanes::Count) return FindInLast(at, end);
        while (at != end && !IsCandidate(at)) ++at;
        return at;
    }

private:
    // A mark behind the first unit belongs to it, so there the second may follow later.
    uint32 Candidates(const wchar16* at) const {
        const __m128i first = lanes::Equal(lanes::Load(at), lanes::All(first_));
        if (!hasSecond_) return lanes::Bits(first);
        const __m128i behind = lanes::Load(at + 1);
        const __m128i joins = lanes::Not(lanes::AtMost(behind, lanes::All(firstJoiningUnit - 1)));
        return lanes::Bits(lanes::And(first, lanes::Or(lanes::Equal(behind, lanes::All(second_)), joins)));
    }
    bool IsCandidate(const wchar16* at) const {
        return *at == first_ && (!hasSecond_ || at[1] == second_ || at[1] >= firstJoiningUnit);
    }
    // In the last eight units, of which those before `at` are known already.
    const wchar16* FindInLast(const wchar16* at, const wchar16* end) const {
        const wchar16* const last = end - lanes::Count;
        const uint32 known = (1u << 2 * (at - last)) - 1;
        const uint32 bits = Candidates(last) & ~known;
        return bits != 0 ? last + lanes::First(bits) : end;
    }

    wchar16 first_ = 0;
    wchar16 second_ = 0;
    bool hasFirst_ = false;
    bool hasSecond_ = false;
};

enum class Verdict { Match, NoMatch, BadPattern };

class Matcher {
public:
    Matcher(const wchar16* text, const wchar16* pattern, wchar16 escape)
        : text_(text), pattern_(pattern), escape_(escape) {}

    Verdict Run();

private:
    enum class Step { GoOn, TryAgain, Done };

    Element Read(const wchar16* at) const;
    bool IsPlain(wchar16 unit) const {
        return unit != 0 && unit < firstJoiningUnit && unit != anyRun && unit != anyOne && unit != escape_;
    }
    void Measure();
    void StepOverEqual();
    PartStart StartOf(const wchar16* part) const;

    Step Take(const Element& element);
    Step TakeCharacter(const Element& element);
    Step TakeRun(const wchar16* rest);
    bool TryFrom(const wchar16* place);
    Step Finish(Verdict verdict) {
        verdict_ = verdict;
        return Step::Done;
    }

    const wchar16* text_;
    const wchar16* pattern_;
    const wchar16 escape_;  // 0 for none
    // Up to where both are known to go on; the text may be longer until a run was met.
    const wchar16* textEnd_ = nullptr;
    const wchar16* patternEnd_ = nullptr;
    // Behind the last run, how that begins, and where in the text it was last tried. The text is known from textBegin_.
    const wchar16* rest_ = nullptr;
    PartStart restStart_;
    const wchar16* tried_ = nullptr;
    const wchar16* textBegin_ = nullptr;
    Verdict verdict_ = Verdict::NoMatch;
};

Element Matcher::Read(const wchar16* at) const {
    if (*at == 0) return {Kind::End, 0, at};
    const wchar16* const next = NextCharacter(at);
    if (*at == escape_) {
        const bool isGood = *next == anyRun || *next == anyOne || *next == escape_;
        return isGood ? Element{Kind::Literal, *next, NextCharacter(next)} : Element{Kind::BadEscape, 0, next};
    }
    if (*at == anyRun) return {Kind::AnyRun, 0, next};
    if (*at == anyOne) return {Kind::AnyOne, 0, next};
    return {Kind::Literal, *at, next};
}

// As much of the text as the pattern may ask for before a run, and only if it is worth it.
void Matcher::Measure() {
    const uint64 length = platform::wcslen(pattern_);
    patternEnd_ = pattern_ + length;
    textEnd_ = text_ + (length < lanes::Count ? 0 : platform::wcsnlen(text_, length));
}

// Steps over what is plain and equal on both sides. If what comes then on either side may join the last unit to a
// character, that unit is left for the careful steps.
void Matcher::StepOverEqual() {
    const __m128i run = lanes::All(anyRun);
    const __m128i one = lanes::All(anyOne);
    const __m128i escape = lanes::All(escape_);
    const std::ptrdiff_t known = std::min(textEnd_ - text_, patternEnd_ - pattern_);
    std::ptrdiff_t count = 0;
    while (known - count >= lanes::Count) {
        const __m128i units = lanes::Load(pattern_ + count);
        const __m128i special =
            lanes::Or(lanes::Or(lanes::Equal(units, run), lanes::Equal(units, one)), lanes::Equal(units, escape));
        const __m128i equal = lanes::And(lanes::Equal(units, lanes::Load(text_ + count)),
                                         lanes::AtMost(units, lanes::All(firstJoiningUnit - 1)));
        const uint32 stops = ~(lanes::Bits(equal) & ~lanes::Bits(special)) & lanes::allBits;
        count += stops != 0 ? lanes::First(stops) : lanes::Count;
        if (stops != 0) break;
    }
    while (text_[count] == pattern_[count] && IsPlain(pattern_[count])) ++count;
    if (count == 0) return;
    if (text_[count] >= firstJoiningUnit || pattern_[count] >= firstJoiningUnit) --count;
    text_ += count;
    pattern_ += count;
}

PartStart Matcher::StartOf(const wchar16* part) const {
    const Element first = Read(part);
    if (first.kind != Kind::Literal || first.unit >= firstJoiningUnit) return {};
    const Element second = Read(first.next);
    if (second.kind != Kind::Literal || second.unit >= firstJoiningUnit) return PartStart(first.unit);
    return {first.unit, second.unit};
}

Matcher::Step Matcher::TakeCharacter(const Element& element) {
    if (*text_ == 0) return Finish(Verdict::NoMatch);
    if (element.kind == Kind::Literal && *text_ != element.unit) return Step::TryAgain;
    text_ = NextCharacter(text_);
    pattern_ = element.next;
    return Step::GoOn;
}

Matcher::Step Matcher::TakeRun(const wchar16* rest) {
    if (*rest == 0) return Finish(Verdict::Match);
    if (*text_ == 0) return Finish(Verdict::NoMatch);  // whatever the rest is, be it nothing but runs
    if (rest_ == nullptr) {
        textBegin_ = text_;
        textEnd_ = text_ + platform::wcslen(text_);
    }
    rest_ = rest;
    restStart_ = StartOf(rest);
    return TryFrom(text_) ? Step::GoOn : Finish(Verdict::NoMatch);
}

// Goes to the first place from there on where the rest may stand; false if the text has none.
bool Matcher::TryFrom(const wchar16* place) {
    tried_ = restStart_.Find(textBegin_, place, textEnd_);
    text_ = tried_;
    pattern_ = rest_;
    return tried_ != textEnd_;
}

Matcher::Step Matcher::Take(const Element& element) {
    switch (element.kind) {
        case Kind::BadEscape:
            return Finish(Verdict::BadPattern);
        case Kind::End:
            return *text_ == 0 ? Finish(Verdict::Match) : Step::TryAgain;
        case Kind::AnyRun:
            return TakeRun(element.next);
        default:
            return TakeCharacter(element);
    }
}

Verdict Matcher::Run() {
    Measure();
    for (;;) {
        StepOverEqual();
        const Step step = Take(Read(pattern_));
        if (step == Step::Done) return verdict_;
        if (step == Step::GoOn) continue;
        if (rest_ == nullptr || !TryFrom(NextCharacter(tried_))) return Verdict::NoMatch;
    }
}

// Whether the very first units tell already that there is no match.
bool DifferAtOnce(const wchar16* text, const wchar16* pattern, wchar16 escape) {
    return *pattern != *text && *pattern != anyRun && *pattern != anyOne && *pattern != escape;
}

}  // namespace

bool Like(const wchar16* text, const wchar16* pattern, const wchar16* escape, bool* match) {
    const wchar16 escapeUnit = escape != nullptr ? *escape : wchar16{0};
    *match = false;
    if (DifferAtOnce(text, pattern, escapeUnit)) return true;
    const Verdict verdict = Matcher(text, pattern, escapeUnit).Run();
    *match = verdict == Verdict::Match;
    if (verdict != Verdict::BadPattern) return true;
    RaiseError(ERRORLEVEL_ERROR, 19, 61);
    return false;
}

}  // namespace Torvo
