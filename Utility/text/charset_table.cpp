#include <Utility/text/charset_table.h>

// One row per set, in the order of the numbers. Windows, DOS, LICS, LMBCS and Unicode sets end lines with CR LF, ISO
// and packed EUC sets with LF, Mac sets with CR. The question marks belong to the names.

namespace Torvo {

namespace {

constexpr const wchar16* CRLF = ZUTEXT("\r\n");
constexpr const wchar16* LF = ZUTEXT("\n");
constexpr const wchar16* CR = ZUTEXT("\r");

constexpr bool single = false;  // one byte a character, or not counted as multi-byte
constexpr bool multi = true;

constexpr int32 none = -1;
constexpr int32 ansi = 0;  // the system's symbol for its current ANSI page
constexpr int32 oem = 1;   // and for its current OEM page

}  // namespace

// clang-format off
const sCharsetEntry charsetTable[charsetCount] = {
    /*  0 */ {ZUTEXT("Neutral"),                single, '_', CRLF},
    /*  1 */ {ZUTEXT("ISO8859_1"),              single, '_', LF},
    /*  2 */ {ZUTEXT("ISO8859_2"),              single, '_', LF},
    /*  3 */ {ZUTEXT("ISO8859_3"),              single, '_', LF},
    /*  4 */ {ZUTEXT("ISO8859_4"),              single, '_', LF},
    /*  5 */ {ZUTEXT("ISO8859_5"),              single, '_', LF},
    /*  6 */ {ZUTEXT("ISO8859_6"),              single, '_', LF},
    /*  7 */ {ZUTEXT("ISO8859_7"),              single, '_', LF},
    /*  8 */ {ZUTEXT("ISO8859_8"),              single, '_', LF},
    /*  9 */ {ZUTEXT("ISO8859_9"),              single, '_', LF},
    /* 10 */ {ZUTEXT("WindowsLatin1"),          single, '_', CRLF},
    /* 11 */ {ZUTEXT("WindowsLatin2"),          single, '_', CRLF},
    /* 12 */ {ZUTEXT("WindowsArabic"),          single, '_', CRLF},
    /* 13 */ {ZUTEXT("WindowsCyrillic"),        single, '_', CRLF},
    /* 14 */ {ZUTEXT("WindowsGreek"),           single, '_', CRLF},
    /* 15 */ {ZUTEXT("WindowsHebrew"),          single, '_', CRLF},
    /* 16 */ {ZUTEXT("WindowsTurkish"),         single, '_', CRLF},
    /* 17 */ {ZUTEXT("WindowsTradChinese"),     multi,  '_', CRLF},
    /* 18 */ {ZUTEXT("WindowsSimpChinese"),     multi,  '_', CRLF},
    /* 19 */ {ZUTEXT("WindowsJapanese"),        multi,  '_', CRLF},
    /* 20 */ {ZUTEXT("WindowsKorean"),          multi,  '_', CRLF},
    /* 21 */ {ZUTEXT("MacRoman"),               single, '_', CR},
    /* 22 */ {ZUTEXT("MacArabic"),              single, '_', CR},
    /* 23 */ {ZUTEXT("MacGreek"),               single, '_', CR},
    /* 24 */ {ZUTEXT("MacHebrew"),              single, '_', CR},
    /* 25 */ {ZUTEXT("MacCentralEuropean"),     single, '_', CR},
    /* 26 */ {ZUTEXT("MacCroatian"),            single, '_', CR},
    /* 27 */ {ZUTEXT("MacCyrillic"),            single, '_', CR},
    /* 28 */ {ZUTEXT("MacIcelandic"),           single, '_', CR},
    /* 29 */ {ZUTEXT("MacThai"),                single, '_', CR},
    /* 30 */ {ZUTEXT("MacTurkish"),             single, '_', CR},
    /* 31 */ {ZUTEXT("MacTradChinese"),         multi,  '_', CR},
    /* 32 */ {ZUTEXT("MacJapanese"),            multi,  '_', CR},
    /* 33 */ {ZUTEXT("MacKorean"),              multi,  '_', CR},
    /* 34 */ {ZUTEXT("CodePage437"),            single, '_', CRLF},
    /* 35 */ {ZUTEXT("CodePage850"),            single, '_', CRLF},
    /* 36 */ {ZUTEXT("CodePage852"),            single, '_', CRLF},
    /* 37 */ {ZUTEXT("CodePage857"),            single, '_', CRLF},
    /* 38 */ {ZUTEXT("CodePage860"),            single, '_', CRLF},
    /* 39 */ {ZUTEXT("CodePage861"),            single, '_', CRLF},
    /* 40 */ {ZUTEXT("CodePage863"),            single, '_', CRLF},
    /* 41 */ {ZUTEXT("CodePage865"),            single, '_', CRLF},
    /* 42 */ {ZUTEXT("CodePage855"),            single, '_', CRLF},
    /* 43 */ {ZUTEXT("CodePage864"),            single, '_', CRLF},
    /* 44 */ {ZUTEXT("CodePage869"),            single, '_', CRLF},
    /* 45 */ {ZUTEXT("LICS"),                   single, '_', CRLF},
    /* 46 */ {ZUTEXT("LMBCS"),                  multi,  '_', CRLF},
    /* 47 */ {ZUTEXT("LMBCS1"),                 single, '_', CRLF},
    /* 48 */ {ZUTEXT("LMBCS2"),                 single, '_', CRLF},
    /* 49 */ {ZUTEXT("MacSimpChinese"),         multi,  '_', CR},
    /* 50 */ {ZUTEXT("?PackedEUCTradChinese"),  multi,  '_', LF},
    /* 51 */ {ZUTEXT("?PackedEUCSimpChinese"),  multi,  '_', LF},
    /* 52 */ {ZUTEXT("PackedEUCJapanese"),      multi,  '_', LF},
    /* 53 */ {ZUTEXT("?PackedEUCKorean"),       multi,  '_', LF},
    /* 54 */ {ZUTEXT("WindowsThai"),            single, '_', CRLF},
    /* 55 */ {ZUTEXT("WindowsBalticRim"),       single, '_', CRLF},
    /* 56 */ {ZUTEXT("WindowsVietnamese"),      single, '_', CRLF},
    /* 57 */ {ZUTEXT("UTF-8"),                  single, '_', CRLF},
    /* 58 */ {ZUTEXT("UTF-16"),                 single, '_', CRLF},
};

const int32 charsetCodePages[charsetCount] = {
    /*  0  Neutral                */ ansi,
    /*  1  ISO8859_1              */ 28591,
    /*  2  ISO8859_2              */ 28592,
    /*  3  ISO8859_3              */ 28593,
    /*  4  ISO8859_4              */ 28594,
    /*  5  ISO8859_5              */ 28595,
    /*  6  ISO8859_6              */ 28596,
    /*  7  ISO8859_7              */ 28597,
    /*  8  ISO8859_8              */ 28598,
    /*  9  ISO8859_9              */ 28599,
    /* 10  WindowsLatin1          */ 1252,
    /* 11  WindowsLatin2          */ 1250,
    /* 12  WindowsArabic          */ 1256,
    /* 13  WindowsCyrillic        */ 1251,
    /* 14  WindowsGreek           */ 1253,
    /* 15  WindowsHebrew          */ 1255,
    /* 16  WindowsTurkish         */ 1254,
    /* 17  WindowsTradChinese     */ 950,
    /* 18  WindowsSimpChinese     */ 936,
    /* 19  WindowsJapanese        */ 932,
    /* 20  WindowsKorean          */ 949,
    /* 21  MacRoman               */ none,
    /* 22  MacArabic              */ none,
    /* 23  MacGreek               */ none,
    /* 24  MacHebrew              */ none,
    /* 25  MacCentralEuropean     */ none,
    /* 26  MacCroatian            */ none,
    /* 27  MacCyrillic            */ none,
    /* 28  MacIcelandic           */ none,
    /* 29  MacThai                */ none,
    /* 30  MacTurkish             */ none,
    /* 31  MacTradChinese         */ none,
    /* 32  MacJapanese            */ none,
    /* 33  MacKorean              */ none,
    /* 34  CodePage437            */ oem,
    /* 35  CodePage850            */ 850,
    /* 36  CodePage852            */ 852,
    /* 37  CodePage857            */ 857,
    /* 38  CodePage860            */ 860,
    /* 39  CodePage861            */ 861,
    /* 40  CodePage863            */ 863,
    /* 41  CodePage865            */ 865,
    /* 42  CodePage855            */ 855,
    /* 43  CodePage864            */ 864,
    /* 44  CodePage869            */ 869,
    /* 45  LICS                   */ none,
    /* 46  LMBCS                  */ none,
    /* 47  LMBCS1                 */ none,
    /* 48  LMBCS2                 */ none,
    /* 49  MacSimpChinese         */ none,
    /* 50  ?PackedEUCTradChinese  */ none,
    /* 51  ?PackedEUCSimpChinese  */ none,
    /* 52  PackedEUCJapanese      */ none,
    /* 53  ?PackedEUCKorean       */ none,
    /* 54  WindowsThai            */ 874,
    /* 55  WindowsBalticRim       */ 1257,
    /* 56  WindowsVietnamese      */ 1258,
    /* 57  UTF-8                  */ 65001,
    /* 58  UTF-16                 */ 1200,
};
// clang-format on

}  // namespace Torvo
