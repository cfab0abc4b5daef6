// Character sets: their numbers, names and properties, and the one called the system charset.
//
// All text inside the library is system text, zero-terminated UTF-16. A character set matters at the edges only, where
// bytes come from, or leave for, a file or a table that names its encoding. ZUCHARSET names every encoding that the
// library knows; how much it can do with one comes in three layers:
//
//   1. named          all 59 have a name, a line end, an unknown code and a multi-byte flag;
//   2. a code page    37 have a code page of the system (GetWinCodePage); only these become system text and are written
//                     from it (<Utility/conversion.h>);
//   3. a byte table   44 have a built-in table of what each of their 256 bytes means; only these are re-coded byte to
//                     byte by ConvertCharset (<Utility/conversion.h>).
//
// The layers are independent: csMacRoman has a table and no code page, csWindowsJapanese a code page and no table,
// csLMBCS neither.
//
// The system charset is the one whose code page is the ANSI page of the thread's locale, found once, when the services
// of the calling thread's instance are created; a later change of the locale leaves it as it is. It is one of the
// Windows sets, or csNeutral for a locale without an ANSI page; never a Unicode set.
//
// The current ANSI and OEM pages are the machine's on Windows; elsewhere they are those of the thread's locale at the
// moment of the call, which may be another than the system charset's once the locale was changed.
//
// The table of the sets is constant. Everything here may be called on any thread, and every text that comes back is a
// constant that nobody frees.
//
// Example: examples/families/charsets.cpp
#pragma once

#include <Utility/platform/types.h>

namespace Torvo {

// The character sets. The numbers travel in files and never change. A value outside the list may be passed to every
// call here; where the call does not say what it gives then, the answer is harmless and means nothing.
enum ZUCHARSET : int32 {
    csUnknown = -1,  // no such set; only Str2CS gives it

    csNeutral = 0,  // bytes in the current ANSI page; counts as "no set" in IsStrConvertNecessary

    csISO8859_1 = 1,  // "ISO8859_1", code page 28591
    csISO8859_2 = 2,  // "ISO8859_2", code page 28592
    csISO8859_3 = 3,  // "ISO8859_3", code page 28593
    csISO8859_4 = 4,  // "ISO8859_4", code page 28594
    csISO8859_5 = 5,  // "ISO8859_5", code page 28595
    csISO8859_6 = 6,  // "ISO8859_6", code page 28596
    csISO8859_7 = 7,  // "ISO8859_7", code page 28597
    csISO8859_8 = 8,  // "ISO8859_8", code page 28598
    csISO8859_9 = 9,  // "ISO8859_9", code page 28599

    csWindowsLatin1 = 10,       // "WindowsLatin1", code page 1252
    csWindowsLatin2 = 11,       // "WindowsLatin2", code page 1250
    csWindowsArabic = 12,       // "WindowsArabic", code page 1256
    csWindowsCyrillic = 13,     // "WindowsCyrillic", code page 1251
    csWindowsGreek = 14,        // "WindowsGreek", code page 1253
    csWindowsHebrew = 15,       // "WindowsHebrew", code page 1255
    csWindowsTurkish = 16,      // "WindowsTurkish", code page 1254
    csWindowsTradChinese = 17,  // "WindowsTradChinese", code page 950
    csWindowsSimpChinese = 18,  // "WindowsSimpChinese", code page 936
    csWindowsJapanese = 19,     // "WindowsJapanese", code page 932
    csWindowsKorean = 20,       // "WindowsKorean", code page 949

    csMacRoman = 21,            // "MacRoman"
    csMacArabic = 22,           // "MacArabic"
    csMacGreek = 23,            // "MacGreek"
    csMacHebrew = 24,           // "MacHebrew"
    csMacCentralEuropean = 25,  // "MacCentralEuropean"
    csMacCroatian = 26,         // "MacCroatian"
    csMacCyrillic = 27,         // "MacCyrillic"
    csMacIcelandic = 28,        // "MacIcelandic"
    csMacThai = 29,             // "MacThai"
    csMacTurkish = 30,          // "MacTurkish"
    csMacTradChinese = 31,      // "MacTradChinese"
    csMacJapanese = 32,         // "MacJapanese"
    csMacKorean = 33,           // "MacKorean"

    csCodePage437 = 34,  // the current OEM page, whatever its number
    csCodePage850 = 35,  // "CodePage850", code page 850
    csCodePage852 = 36,  // "CodePage852", code page 852
    csCodePage857 = 37,  // "CodePage857", code page 857
    csCodePage860 = 38,  // "CodePage860", code page 860
    csCodePage861 = 39,  // "CodePage861", code page 861
    csCodePage863 = 40,  // "CodePage863", code page 863
    csCodePage865 = 41,  // "CodePage865", code page 865
    csCodePage855 = 42,  // "CodePage855", code page 855
    csCodePage864 = 43,  // "CodePage864", code page 864
    csCodePage869 = 44,  // "CodePage869", code page 869

    csLICS = 45,    // a single-byte international set
    csLMBCS = 46,   // its multi-byte form: a name only
    csLMBCS1 = 47,  // the single-byte code groups of that form
    csLMBCS2 = 48,  // "LMBCS2"

    csMacSimpChinese = 49,  // "MacSimpChinese"

    csPackedEUCTradChinese = 50,  // the names of 50, 51 and 53 begin with a question mark
    csPackedEUCSimpChinese = 51,  // "?PackedEUCSimpChinese"
    csPackedEUCJapanese = 52,     // "PackedEUCJapanese"
    csPackedEUCKorean = 53,       // "?PackedEUCKorean"

    csWindowsThai = 54,        // "WindowsThai", code page 874
    csWindowsBalticRim = 55,   // "WindowsBalticRim", code page 1257
    csWindowsVietnamese = 56,  // "WindowsVietnamese", code page 1258

    csUTF8 = 57,   // "UTF-8", code page 65001
    csUTF16 = 58,  // "UTF-16", code page 1200
};

// Names.

// The name, as in "WindowsLatin1"; the empty text for a value outside 0 to 58.
ZUAPI const wchar16* CS2Str(ZUCHARSET cs);
// The name of a set that is known to be one.
ZUAPI const wchar16* CharsetName(ZUCHARSET cs);
// The set of a name, case ignored, or csUnknown. "ANSI" gives the system charset of the moment, "MAC" csMacRoman,
// "LICS" csLICS and "XASCII" csCodePage437; everything else is looked for among the names of CS2Str. Null is unknown.
ZUAPI ZUCHARSET Str2CS(const wchar16* name);
// The name of older files, which knew four sets: "MAC" for csMacRoman, "XASCII" for csCodePage437, "LICS" for csLICS,
// and "ANSI" for every other value.
ZUAPI const wchar16* CS2OldStr(ZUCHARSET cs);
// Those four names.
ZUAPI const wchar16* CharsetANSI();
ZUAPI const wchar16* CharsetMAC();
ZUAPI const wchar16* CharsetXASCII();
ZUAPI const wchar16* CharsetLICS();

// Properties of a set that is known to be one.

// How lines end in it: CR LF, LF or CR.
ZUAPI const wchar16* CharsetSlashN(ZUCHARSET cs);
// The byte that stands for a character that the set does not hold: "_" in every set.
ZUAPI uint8 CharsetUnknownCode(ZUCHARSET cs);
// Whether a character may take more than one byte in the sense of the double-byte sets; false for UTF-8. Two names of
// one operation.
ZUAPI bool CharsetDBCS(ZUCHARSET cs);
ZUAPI bool IS_DBCS_CHARSET(ZUCHARSET cs);

// Properties of any value.

// True for csUTF8 and csUTF16.
ZUAPI bool IsUnicodeCharset(ZUCHARSET cs);
// The number of the system's code page; -1 for a set that has none, and for a value that is no set. 0 and 1 are the
// system's symbols for the current ANSI and the current OEM page: csNeutral gives 0, and csCodePage437 gives 1 on
// purpose.
ZUAPI int32 GetWinCodePage(ZUCHARSET cs);
// Whether text has to be converted between two sets: they differ, and both lie in 1 to 58. False with csNeutral on
// either side.
ZUAPI bool IsStrConvertNecessary(ZUCHARSET a, ZUCHARSET b);

// The system charset of the caller's instance.
ZUAPI ZUCHARSET system_charset();

// How many bytes `s` takes in `cs`, without a terminator; 0 for null. A set without a code page of its own number (the
// Mac sets, csNeutral, csCodePage437) is measured in the code page of the system charset. A letter and a combining mark
// count as the composed letter where the page has it, in every set but csUTF8 and csUTF16.
//
// csUTF16 has no limit. In every other set the result is also 0 for a text of more than 2,147,483,647 units, for one
// that takes more bytes than that number, and where the system refuses the conversion (memory for the code page's
// tables is short).
ZUAPI uint64 StringByteLength(const wchar16* s, ZUCHARSET cs);

// The name of a locale, as in `en-US`, from its identifier. Copied with strcpyn: at most `size` - 1 units, the rest of
// the `size` units filled with zeros. False, with `out` untouched, for a null `out`, the identifier 0, or one that the
// system does not know.
ZUAPI bool LCIDToName(uint32 lcid, wchar16* out, uint64 size);

// The service that holds the system charset.
class ZUAPI cCharsetInfo {
public:
    virtual ~cCharsetInfo() = default;
    virtual ZUCHARSET system_charset() = 0;

    // A new service, owned by the caller, which reads the thread's locale now; null if memory is short. The locale
    // service of the caller's instance must exist.
    static cCharsetInfo* Create();
    // The service of the caller's instance.
    static cCharsetInfo* Instance();
    // Replaces it. The former one is not destroyed: who replaces a service owns the old one.
    static bool Instance(cCharsetInfo* service);
};

}  // namespace Torvo
