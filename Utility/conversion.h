// Conversion between character sets, and of line ends.
//
// There are three roads, and they share nothing.
//
//   Byte to byte     ConvertCharset gives a table of 256 bytes that re-codes one set into another, made from the
//                    library's own byte tables. It works between the 44 sets that have one, and takes no part in the
//                    other roads. The caller applies the table to whole buffers itself.
//   Bytes and text   ConvertMBCSCharToSystem and ConvertSystemToMBCSChar go through the system's code pages, for the 37
//                    sets that have one (GetWinCodePage in <Utility/charsets.h>). UTF-16 is copied.
//   Line ends        in system text.
//
// Sizes are in 16-bit units where the buffer holds system text, and in bytes where it holds bytes. Nothing here leaves
// an error record: a failure is a false or null result, and a null pointer or a size of 0 that makes a call impossible
// is a failure. Unless said otherwise, what a buffer holds after a failure is unspecified within its size. Source and
// destination must not overlap.
//
// ConvertCharset works on a cache of the caller's instance, so calls on one instance must not overlap. Everything else
// may be called on any thread.
//
// Example: examples/families/conversion.cpp
#pragma once

#include <Utility/charsets.h>
#include <Utility/platform/types.h>

namespace Torvo {

// Byte to byte.

// The re-coding table from one set to another: entry i of *table is the byte in `to` of the character that byte i means
// in `from`. A byte without a meaning, or whose character `to` does not hold, becomes the unknown code "_", and so does
// byte 0 always: a zero byte does not survive re-coding. When several bytes of `to` mean the character, the lowest is
// taken. Byte 0xFF of `to` is never taken, so a character that lives only there, as y with diaeresis does in
// WindowsLatin1, counts as not held. The two directions of a pair are two tables, in general not inverse to each other.
//
// *unmapped receives how many of the bytes 1 to 255 became "_" for want of a mapping, but only by the call that builds
// the table: the last ten pairs are kept, and a call that finds its pair among them leaves *unmapped untouched. Set it
// to a value of your own before the call if you need it defined.
//
// The table belongs to the service. It stays as it is until ten more pairs have been built; from then on the pointer
// leads to the table of another pair. Copy it to keep it.
//
// False, with *unmapped and *table untouched, if the two are equal, if either is csNeutral or outside 0 to 58, or if
// either has no byte table. `unmapped` may be null.
ZUAPI bool ConvertCharset(ZUCHARSET from, ZUCHARSET to, int* unmapped, unsigned char** table);

// The service behind it, with the ten tables.
class ZUAPI cCharsetConverter {
public:
    virtual ~cCharsetConverter() = default;
    virtual bool ConvertCharset(ZUCHARSET from, ZUCHARSET to, int* unmapped, unsigned char** table) = 0;

    // A new service without a table, owned by the caller; null if memory is short.
    static cCharsetConverter* Create();
    // The service of the caller's instance.
    static cCharsetConverter* Instance();
    // Replaces it. The former one is not destroyed: who replaces a service owns the old one.
    static bool Instance(cCharsetConverter* service);
};

// Bytes to system text and back.

// Converts `srcBytes` bytes of `cs` to system text in `dst` and adds a terminator.
//
// ATTENTION: the terminator comes on top of `dstSize`. A text that fills `dst` exactly writes its terminator to
// dst[dstSize], so pass one less than the room there is.
//
// True if something was converted. False for a null `src` or `dst` and for a `srcBytes` or `dstSize` of 0, with nothing
// written; and if the text does not fit, has 2 GiB or more, or the system does not know the code page (as for a set
// that has none), with a terminator at dst[0].
//
// In csUTF16 the smaller of `srcBytes` / 2 and `dstSize` units are copied, with zeros from the first zero unit on, and
// a terminator behind them. The result is then whether `dstSize`, in units, is at least `srcBytes`, in bytes: give
// as many units as the source has bytes, or expect false although all was copied.
ZUAPI bool ConvertMBCSCharToSystem(const char* src, uint64 srcBytes, ZUCHARSET cs, wchar16* dst, uint64 dstSize);
// The same for a source that ends with a zero byte; the zero byte is not converted.
ZUAPI bool ConvertMBCSCharToSystem(const char* src, ZUCHARSET cs, wchar16* dst, uint64 dstSize);

// Converts `src` to bytes of `cs` in `dst`, at most `dstSize` bytes, terminator included. A character that `cs` does
// not hold becomes the nearest one that the system's code page names for it (L for L with stroke, an apostrophe for a
// typographic one), else "_"; a letter followed by a combining mark becomes the composed letter where there is one. In
// csUTF8 none of that happens. A set without a code page writes the bytes of the system charset instead.
//
// True on success. If the text does not fit: false; or, with `allowTruncate`, true, and `dst` holds what fitted,
// without a terminator. False for a null `src` or `dst` and a `dstSize` of 0, with nothing written.
//
// csNeutral and csCodePage437, whose page numbers are symbols (GetWinCodePage), try once more: a text that does not fit
// in the page that the symbol stands for is then written in the system charset, as if the set had no code page, and the
// call succeeds if it fits there. Without `allowTruncate` only, since with it the first attempt stands.
//
// In a set without a code page and in that second attempt, a letter and a mark whose composed letter the page does not
// hold become a single "_"; otherwise each of the two is written for itself.
//
// In csUTF16 as many bytes are copied as fit, and the result is whether all did, with no regard to `allowTruncate`. A
// terminator of two bytes follows only without `allowTruncate`, after a text that is not empty, and if more room than
// those two bytes is left.
ZUAPI bool ConvertSystemToMBCSChar(const wchar16* src, char* dst, ZUCHARSET cs, uint64 dstSize, bool allowTruncate);

// Copies system text. True if it fits with its terminator, the rest of the `dstSize` units filled with zeros. Otherwise
// the first `dstSize` units are copied, no terminator is written, and the result is true only if `allowTruncate` is set
// and nothing but the terminator was left out.
ZUAPI bool ConvertSystemToWideChar(const wchar16* src, wchar16* dst, uint64 dstSize, bool allowTruncate);

// Copies wide text, which is zero-terminated, whatever `srcLength` says of it. If `srcLength` is less than `dstSize`,
// it is copied with strcpyn (a terminator, the rest of the `dstSize` units zero) and the result is true. Otherwise the
// first `dstSize` units are copied, no terminator is written, and the result is false. `cs` has no effect.
ZUAPI bool ConvertWideCharToSystem(const wchar16* src, uint64 srcLength, wchar16* dst, ZUCHARSET cs, uint64 dstSize);

// Line ends. Both leave `text` as it is and give a new block, which the caller frees with ffree_
// (<Utility/memory_blocks.h>). Null means that there is nothing to do, or that memory was short: the caller goes on
// with the text that it has.

// Every line end, CR LF, a lone CR or a lone LF, as the line end of the system charset, which is CR LF. Null if the
// text has no line end; a text whose line ends are right already gives an equal block.
ZUAPI wchar16* ConvertLFToPlatformCRLF(wchar16* text);
// Every CR LF and every lone CR as LF. Null if the text has no CR.
ZUAPI wchar16* ConvertPlatformCRLFToLF(wchar16* text);

}  // namespace Torvo
