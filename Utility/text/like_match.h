// The parts of the pattern match. Most matches are decided in like.cpp and like_run.cpp, which take the units that
// join nothing; everything else is left to MatchSteps, and all could be.
#pragma once

#include <Utility/platform/types.h>

namespace Torvo::like {

inline constexpr wchar16 anyRun = '%';
inline constexpr wchar16 anyOne = '_';

// The escape character, 0 where there is none. As wide as a register, which is read faster than half of one.
using EscapeUnit = uint32;

// Both answer as Like does, for texts that begin at the start of a character.
//
// Character by character (like_steps.cpp).
bool MatchSteps(const wchar16* text, const wchar16* pattern, EscapeUnit escape, bool* match);
// A pattern that begins with a run (like_run.cpp).
bool MatchRun(const wchar16* text, const wchar16* pattern, EscapeUnit escape, bool* match);

// What is rarely needed behind a run, and would only be in the way there (like_steps.cpp): the first place from `text`
// on where a part may stand that begins with a plain unit, or the terminator; and whether a part is the last one, and
// takes one unit for each of its own where nothing joins another.
const wchar16* NextPlace(const wchar16* text, const wchar16* part, EscapeUnit escape);
bool IsLastPart(const wchar16* part, EscapeUnit escape);

}  // namespace Torvo::like
