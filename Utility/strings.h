// The string functions that the library uses in place of the runtime's.
//
// Text is system text: zero-terminated, in 16-bit units. The family has one idea. While the system charset
// (<Utility/charsets.h>) is a multi-byte one, that is on a Chinese, Japanese or Korean system, a text is WALKED: one
// character at a time, a character being a unit or a pair of surrogates with the combining marks behind it. On every
// other system the plain function of the runtime does the work, unit by unit, and much faster. Which of the two it is,
// is asked for at every call.
//
// The rules of walking:
//   - of a character only the first unit is compared, so a mark or the second half of a pair is never found;
//   - positions and counts are in units all the same; zuStrLen alone counts characters then;
//   - zuStrchr and zuStrstr, but no other function, search for the low byte of the unit alone: see there.
//
// Sizes and counts are in units. A text may not be null, except where a call says so. Searches return positions inside
// the text that was passed, although it is const there. Nothing here reports an error or leaves an error record. All
// functions may be called on any thread with texts that no other thread changes.
//
// Example: examples/families/strings.cpp
#pragma once

#include <Utility/platform/types.h>

namespace Torvo {

// Length and position. These walk on a multi-byte system.

// The number of units; the number of characters when walking.
ZUAPI uint64 zuStrLen(const wchar16* s);
// The first position of `c`, or null; the terminator for 0. Walking searches for the low 8 bits of `c`, extended by
// their sign to 16: U+3042 finds "B" (U+0042), and a unit whose low byte is 0x80 or more finds only one of U+FF80 to
// U+FFFF.
ZUAPI wchar16* zuStrchr(const wchar16* s, wchar16 c);
// The last position of `c`, or null; the terminator for 0. All 16 bits of `c` count, walking or not.
ZUAPI wchar16* zuStrrchr(const wchar16* s, wchar16 c);
// The first place where `sub` stands, or null; `s` itself when `sub` is empty. Walking looks at the places only where
// zuStrchr finds the first unit of `sub`, so a `sub` that begins beyond ASCII is mostly not found.
ZUAPI wchar16* zuStrstr(const wchar16* s, const wchar16* sub);
// The first position of a member of `set`, or null.
ZUAPI wchar16* zuStrpbrk(const wchar16* s, const wchar16* set);
// How many units at the start lie before the first that is not in `set`.
ZUAPI uint64 zuStrspn(const wchar16* s, const wchar16* set);
// How many units at the start lie before the first that is in `set`.
ZUAPI uint64 zuStrcspn(const wchar16* s, const wchar16* set);
// The index of the last character that is in `set`; -1 if there is none.
ZUAPI int64 strrcspn(const wchar16* s, const wchar16* set);
// The last unit, or when walking the start of the last character; `s` for an empty text.
ZUAPI wchar16* zuLastChar(const wchar16* s);

// Length and position, the same on every system.

// The next character, its terminator at the end of the text.
ZUAPI wchar16* zuNextChar(const wchar16* s);
// The character before `p`, but never before `start`.
ZUAPI wchar16* zuPrevChar(const wchar16* start, const wchar16* p);
// False: system text has no lead bytes.
ZUAPI bool zuIsLeadByte(const wchar16* p);
// As zuStrchr and zuStrpbrk, never walking and without asking for the charset. For characters whose place walking
// cannot change.
ZUAPI wchar16* fast_strchr(const wchar16* s, wchar16 c);
ZUAPI wchar16* fast_strpbrk(const wchar16* s, const wchar16* set);

// Classes and case of a unit. Letters and digits are the runtime's; case is the platform's, and the two need not agree
// on what a letter is. 0 or 1.
ZUAPI int32 zuIsAlpha(wchar16 c);
ZUAPI int32 zuIsAlphaNum(wchar16 c);
ZUAPI int32 zuIsLower(wchar16 c);
ZUAPI int32 zuIsUpper(wchar16 c);
// The unit in the other case, or itself where there is none.
ZUAPI wchar16 zuToLower(wchar16 c);
ZUAPI wchar16 zuToUpper(wchar16 c);

// Changes in place. These return their argument.

// Changes the case of every unit.
ZUAPI wchar16* zuStrLwr(wchar16* s);
ZUAPI wchar16* zuStrUpr(wchar16* s);
// Reverses the order of the units, on every system: pairs and marks are taken apart.
ZUAPI wchar16* zuStrrev(wchar16* s);
// Copies `src` to `dst` by strcpyn under `size` (<Utility/bounded_copy.h>), then appends a backslash unless `dst` is
// empty or its last character is a backslash or a slash. The appending does not look at `size`: a text that fills `dst`
// takes two units more than `size` - 1, so the buffer must hold size + 1 units.
ZUAPI void concat_backslash(const wchar16* src, wchar16* dst, uint64 size);

// Comparison. With case it is by unit, unsigned. Without, it is the runtime's: A to Z equal a to z, and other letters
// equal their other case only if the program has set the runtime's character locale (setlocale) to one that is not "C".

// -1, 0 or 1.
ZUAPI int32 zuStrCmp(const wchar16* a, const wchar16* b);
// Below 0, 0, above 0; the second within the first `n` units.
ZUAPI int32 zuStrICmp(const wchar16* a, const wchar16* b);
ZUAPI int32 zuStrNICmp(const wchar16* a, const wchar16* b, uint64 n);
// Whether two texts are equal: with case, without, and each within the first `n` units.
ZUAPI bool strequ(const wchar16* a, const wchar16* b);
ZUAPI bool striequ(const wchar16* a, const wchar16* b);
ZUAPI bool strnequ(const wchar16* a, const wchar16* b, uint64 n);
ZUAPI bool strniequ(const wchar16* a, const wchar16* b, uint64 n);

// Tokenizers: the first for words between blanks or other delimiters, several of which count as one; the second for the
// parts of an expression; the third for fields that are to keep their places, empty ones included.

// The plain one. A token is a run of units that are not in `delimiters`; the delimiter behind it is overwritten with 0.
// A null `s` goes on behind the last token. The token, or null when there is none left.
//
// Without walking the place to go on is the runtime's, one per thread: `context` is neither read nor written, and two
// texts cannot be taken apart in turns. When walking the place is *context. So pass the same variable to all calls on a
// text, never null, finish one text before the next, and make nothing of what the variable holds.
ZUAPI wchar16* zuStrtok(wchar16* s, const wchar16* delimiters, wchar16** context);

// The one for expressions, which knows quotes and, if `brackets` is true, round and square brackets; inside either a
// delimiter is an ordinary character. It always walks. The result is the next token, which begins at the first
// character of `s` that is neither blank nor control, is cut off by overwriting its delimiter with 0, and has its
// blanks at the end removed; null if only such characters are left. *context becomes the place behind the delimiter,
// for the next call to start from, or the terminator. `s` may not be null: each call names its own start.
//
//   - A quote is one of " ' ` outside brackets, ends at the same character, and stays part of the token. The character
//     doubled inside does not end it. A quote that is in `delimiters` is a delimiter.
//   - Brackets nest, "(" with "[" mixed, and stay part of the token. Quotes inside them are ordinary characters, as are
//     brackets inside quotes, and closing brackets without an opening one.
//   - A delimiter at the very start gives an empty token.
//
//     f(a,b),c   with brackets: "f(a,b)", then "c"; without: "f(a", then "b)", then "c"
//     'it''s',x  "'it''s'", then "x"
ZUAPI wchar16* zuStrtok(wchar16* s, const wchar16* delimiters, bool brackets, wchar16** context);

// The one that changes nothing and reports positions. A token begins at the first unit at or after `start` that is no
// white space (space, tab, line feed, carriage return), and ends before the next unit of `delimiters` outside quotes.
//
// `quotePairs` is a text of pairs, an opening and a closing character each; it may be empty, but not null, and must not
// end in the middle of a pair. A pair of two different characters nests; a pair of one character twice does not, and
// there the doubled character stays inside. The quotes belong to the token; one that never closes runs to the end.
// Openers are known by their low 8 bits alone, closers by all 16. A character that is an opener and a delimiter is an
// opener.
//
// True for a token: *tokenStart and *tokenLength say where it is, which may be empty, and *nextPos is the place behind
// its delimiter, or the largest 64-bit value after the last one. False when only white space is left: *tokenLength is
// then 0, and both positions are the largest 64-bit value.
//
// White space at the end of a token is left out before a delimiter that is white space itself, and at the end of
// `source`; before any other delimiter it stays. What counts there depends on the token's length with that white space:
// one unit, only spaces; two, tabs as well; three, line feeds as well; and from four on carriage returns too.
//
//     "abc , d"  with ",": "abc " from 0, next 5; then "d" from 6, next the largest value
ZUAPI bool zuStrtok(const wstring16& source, uint64 start, const wstring16& delimiters, uint64* tokenStart,
                    uint64* tokenLength, uint64* nextPos, const wchar16* quotePairs);

}  // namespace Torvo
