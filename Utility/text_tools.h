// Small tools on system text: searches and edits in place, quotes, line ends as "\n" in two characters, text in the
// machine's own code page, and the pattern match of SQL.
//
// A character is what zuNextChar (<Utility/strings.h>) steps over: a unit or a pair of surrogates, with the combining
// marks behind it. Where a call says that it walks, it looks at the first unit of each character and at no other; every
// other call looks at every unit. White and blank are the classes of <Utility/bounded_copy.h>.
//
// Sizes, counts and lengths are in 16-bit units, except where a call says bytes. A null text is refused: searches and
// comparisons find nothing, and edits do nothing. (TextAddCrs takes null with a length of 0 for the empty text.)
// Nothing but Like leaves an error record. None of the functions keeps state; all may be called on any thread with
// texts that no other thread changes.
//
// Example: examples/families/text_tools.cpp
#pragma once

#include <Utility/platform/types.h>

#include <string>

namespace Torvo {

// Searches and edits in place.

// Walks the first `n` units of `s` to a unit equal to `c`: its position, or null if there is none ahead of the
// terminator. The terminator itself is never found. The last step may carry the walk past the end of the range, when a
// character begins within the range and ends behind it: the position that it reaches counts as found, whatever stands
// there, so a result greater than s + n means that `c` was not met. Where a character ends is told by the units behind
// it, so `s` has a terminator even where that lies behind the range.
ZUAPI wchar16* strnchr(const wchar16* s, wchar16 c, uint64 n);

// The first unit that is not white, or null if the text has none.
ZUAPI const wchar16* skipwhite(const wchar16* s);

// Reverses the order of `n` bytes. Returns `p`.
ZUAPI void* memrev(void* p, uint64 n);

// Every unit that occurs in `set` becomes `c`.
ZUAPI void zuCharReplace(wchar16* s, const wchar16* set, wchar16 c);

// Walks; every `from` at the start of a character becomes `to`.
ZUAPI void TextReplaceChar(wchar16* s, wchar16 from, wchar16 to);

// Cuts off the blanks at the end of byte text and returns its new length in bytes. `cs` is the number of its character
// set (<Utility/charsets.h>), below 1 for the system charset; the text is walked in that set's code page, so that the
// second byte of a pair is never taken for a blank. Bytes from 128 up are none either.
ZUAPI uint64 rtrimA(char* s, int cs);

// Quoting. A quoted text stands between two quote characters, and each quote character inside it is doubled. The quote
// character is the first unit of `quote`; no other unit of that counts. When `quote` is empty, both calls are strcpyn
// (<Utility/bounded_copy.h>). `dst` may be `src`, but must not overlap it in another way. `quote` may lie in
// `dst`; it is read before anything is written. A null `src` gives the empty text.

// Quotes `src` into at most `size` units, terminator included, and returns `dst`. The closing quote and the terminator
// are always written: what does not fit is cut off the text. Units behind the terminator are left as they are. `size`
// must be at least 3; a smaller one gives the empty text, or for 0 nothing at all.
//
//     it's     with a `size` of 20    'it''s'
//     it's     with a `size` of 6     'it'       the doubled quote does not fit any more, and ends the text
//     it's     the same, in place     'it''      the second half of the doubled quote is cut off
//
// The last two show what in place differs in. There the text is first cut to what fits without doubling; doubling then
// moves its end up, and pushes out what goes beyond the room, be it one half of a doubled quote.
ZUAPI wchar16* quotestring(wchar16* dst, const wchar16* src, uint64 size, const wchar16* quote);

// Takes the quotes off: at most `size` units, terminator included. Returns `dst`. A text that does not start with the
// quote character is copied by strcpyn. Otherwise everything from the closing quote on is dropped, as in a from 'a'b; a
// quote that is never closed ends with the text. `dst` is terminated, and units behind that are left as they are; a
// `size` of 0 writes nothing.
ZUAPI wchar16* unquotestring(wchar16* dst, const wchar16* src, uint64 size, const wchar16* quote);

// Line ends. <Utility/conversion.h> has the calls that follow a character set.

// Copies exactly `length` units from `src` to `dst`, which may be `src`. With `decode` false, each CR LF becomes a
// backslash and "n"; with `decode` true, each backslash and "n" becomes CR LF. A pair of which `length` leaves out the
// second half is no pair. A zero unit is copied as any other, and no terminator is written.
ZUAPI void FilterNewline(wchar16* dst, const wchar16* src, uint64 length, bool decode);

// Copies `length` units of `text` to a new block at *out, with a CR ahead of each LF and a terminator at the end, and
// returns the length without it. A CR that is there already is not looked at: CR LF becomes CR CR LF. The caller frees
// the block with ffree_ (<Utility/memory_blocks.h>); what *out held before is not looked at. 0, and null in *out, if
// memory is short or `text` is refused.
ZUAPI uint64 TextAddCrs(wchar16** out, const wchar16* text, uint64 length);

// Removes each CR that stands before an LF, in place, and returns the new length. A lone CR stays, and of CR CR LF the
// first.
ZUAPI uint64 TextRemoveCrs(wchar16* s);

// Byte text in the machine's ANSI code page, for text that the library itself stores or hands to narrow interfaces;
// data with a character set of its own goes through <Utility/conversion.h>. What the page does not hold becomes what
// the system puts in its place. A failure of the system's conversion, as of a text that does not fit, is not reported:
// the target is left as the system left it, perhaps without a terminator. A null `src` gives null, or an empty string.
//
// The blocks that the calls with New in their names return belong to the caller, who frees them with ffree_
// (<Utility/memory_blocks.h>); null also if memory is short. The calls that return a string give an empty one then.

// To system text. `size` is in units and cut to 32 bits.
ZUAPI wchar16* StringToExistingWString(wchar16* dst, uint64 size, const char* src);
// In a block of as many units as the source has bytes, and one more.
ZUAPI wchar16* StringToNewWString(const char* src);
ZUAPI wstring16 StringToWString(const char* src);
// All of the string, zero bytes included.
ZUAPI wstring16 StringToWString(const std::string& src);

// To bytes. `size` is in bytes and cut to 32 bits.
ZUAPI char* WStringToExistingString(char* dst, uint64 size, const wchar16* src);
ZUAPI char* WStringToNewString(const wchar16* src);
// In UTF-8. `length` receives the number of bytes, terminator not counted; it is left alone where the result is null.
ZUAPI char* WStringToNewUTF8String(const wchar16* src, int& length);
ZUAPI std::string WStringToString(const wchar16* src);
// All of the string, zero units included.
ZUAPI std::string WStringToString(const wstring16& src);

// Whether `text` is like `pattern`, as in SQL, case-sensitive. It walks: in the pattern "%" stands for any number of
// characters, none included, and "_" for exactly one; any other character for one whose first unit is the same. The
// first unit of `escape` is the escape character, which takes a "%", a "_" or itself behind it for what it is; an empty
// `escape`, or null, means that there is none.
//
// True if the pattern is good, with the verdict in *match. False, with *match false and error 19 (resource 61), if the
// escape character stands before any other character or at the end; but only if the match comes that far: a pattern
// that has failed before is not read on. A null `text` or `pattern` is no match, and true; a null `match` is false.
//
//     abc   a%c     match             100%   100!% with the escape !   match
//     abc   a_c     match             100%   1!0 with the escape !     false, and the error
//     abc   a__c    no match          (empty)   %                      match
//     abc   A%      no match          (empty)   %%                     no match
//
// The last one is kept as it is: a "%" that meets the end of the text matches only if it ends the pattern.
//
// The time taken grows at most with the product of the two lengths, and the depth of the stack not at all. (The method:
// when a part between two "%" has been found, its first place is as good as any later one, so that only the last "%" is
// ever tried again.)
ZUAPI bool Like(const wchar16* text, const wchar16* pattern, const wchar16* escape, bool* match);

}  // namespace Torvo
