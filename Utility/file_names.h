// File types, and the names that files of a type bear.
//
// A file is a name plus a TYPE. The type says which extension the name ought to have. Some types FORCE their extension:
// a file that is registered with one (<Utility/files.h>) gets it, whatever name the caller gave. For the others it is a
// recommendation, which the calls below apply when they are asked to.
//
// These calls work on text alone; no disk is touched and no name is looked up. Paths are in the Windows form, and both
// separators and the colon of a drive end a directory: what stands behind the last of them is the COMPONENT, the name
// proper. An EXTENSION is the text from a component's last dot, and for make_extension and what builds on it only if
// it is the extension of some type: `a.foo` has none. Case is ignored in comparisons, by the rules of zuStrICmp, and
// written as the table below has it.
//
// Before they give a name its extension, the calls tidy its component: BLANKS at its start are removed, which are white
// space and controls, as in <Utility/bounded_copy.h>, and a component of 255 units or more is cut to 254.
//
// The working limit of a path is 260 units. A buffer for a path has room for 261 and, where an extension is put on a
// path in place, for that as well. Nothing here fails, or raises an error; a call that is given null for a text changes
// nothing, except where it says otherwise.
//
// Each call is the operation of the same name of cFileSystem, in the caller's instance.
//
// Example: examples/families/file_names.cpp
#pragma once

#include <Utility/platform/types.h>

namespace Torvo {

// What kind of file a name stands for: the number, and the extension.
enum FILETYPE : int32 {
    ftNone = 0,       // none
    ftTab = 1,        // .TAB
    ftDot = 2,        // .
    ftWor = 3,        // .WOR
    ftTxt = 4,        // .TXT
    ftMap = 5,        // .MAP, forced
    ftId = 6,         // .ID, forced
    ftInd = 7,        // .IND, forced
    ftTma = 8,        // .TMA, forced
    ftTin = 9,        // .TIN, forced
    ftTda = 10,       // .TDA, forced
    ftTid = 11,       // .TID, forced
    ftPrf = 12,       // .PRF
    ftHlp = 13,       // .HLP
    ftFnt = 14,       // .FNT
    ftAbb = 15,       // .ABB
    ftZb = 16,        // .ZB
    ftZbx = 17,       // .ZBX, forced
    ftDat = 18,       // .DAT
    ftDbf = 19,       // .DBF
    ftWk1 = 20,       // .WK1
    ftWks = 21,       // .WKS
    ftXls = 22,       // .XLS
    ftZif = 23,       // .ZIF
    ftZmi = 24,       // .ZMI
    ftZbi = 25,       // .ZBI
    ftImg = 26,       // .IMG
    ftDxf = 27,       // .DXF
    ftPic = 28,       // .PIC
    ftZid = 29,       // .ZID, forced
    ftRpt = 30,       // .RPT, forced
    ftOtherTab = 31,  // .TAB
    ftBmp = 32,       // .BMP
    ftLay = 33,       // .LAY
    ftPen = 34,       // .PEN
    ftPrj = 35,       // .PRJ
    ftWmf = 36,       // .WMF
    ftBare = 37,      // none
    ftDef = 38,       // .DEF
    ftErr = 39,       // .ERR
    ftExe = 40,       // .EXE
    ftMnu = 41,       // .MNU
    ftZbo = 42,       // .ZBO, forced
    ftZbp = 43,       // .ZBP
    ftClr = 44,       // .CLR
    ftBil = 45,       // .BIL
    ftEps = 46,       // .EPS
    ftRas = 47,       // .RAS
    ftGif = 48,       // .GIF
    ftTif = 49,       // .TIF
    ftTlb = 50,       // .TLB
    ftTmp = 51,       // .TMP
    ftWk3 = 52,       // .wk3
    ftCpf = 53,       // .cpf, forced
    ftPcx = 54,       // .PCX
    ftJpg = 55,       // .JPG
    ftTga = 56,       // .TGA
    ftLda = 57,       // .LDA, forced
    ftLma = 58,       // .LMA, forced
    ftLin = 59,       // .LIN, forced
    ftLnk = 60,       // .lnk
    ftSql = 61,       // .sql
    ftWk4 = 62,       // .wk4
    ftAid = 63,       // .aid
    ftMdb = 64,       // .mdb
    ftPng = 65,       // .png
    ftPsd = 66,       // .psd
    ftShp = 67,       // .shp, forced
    ftShx = 68,       // .shx, forced
    ftCsv = 69,       // .csv
    ftXml = 70,       // .xml
    ftHtml = 71,      // .html, forced
    ftSwf = 72,       // .swf, forced
    ftOtherXml = 73,  // .xml
    ftGpkg = 74,      // .gpkg
};

// How a file is opened.
enum eOpenMode : int32 {
    omRead = 1,       // to read
    omReadWrite = 2,  // to read and write; the file must exist
    omCreate = 3,     // to read and write, created, or emptied if it exists
};

// The extension of a type with its dot, in a text that lasts; null for a type without one and for a number above 74.
ZUAPI const wchar16* file_extension(FILETYPE type);
// The lowest type with the extension of a name, ftNone if there is none. The extension here is what stands from the
// last dot of the whole text on, so that a directory with a dot counts where the name has none; `a.` has none, and nor
// has null.
ZUAPI FILETYPE file_type(const wchar16* name);
// Whether a type forces its extension.
ZUAPI bool munge_filename(FILETYPE type);

// Gives a name the extension `ext`, with its dot, in place of the one that it has. Blanks before that place are
// removed; with a null `ext`, nothing but those. With an empty one the extension is removed, unless 255 units or more
// stand before it, and the component is not tidied. A component that would reach 255 units loses the last unit of
// `ext`.
//
//     a  .DAT, ".TAB"  ->  a.TAB          a.foo, ".TAB"  ->  a.foo.TAB          a., ".TAB"  ->  a.TAB
ZUAPI void make_extension(wchar16* name, const wchar16* ext);
// make_extension with that of a type; no change for a type without one.
ZUAPI void require_dos_extension(wchar16* name, FILETYPE type);

// Writes the name that a file of a type ought to have: `in`, tidied, with the extension of the type if there is one.
// A text file may be called .csv. `out` may be `in`; of a longer path the first 260 units are taken, and no more than
// 260 are written.
//
//     x.dat, ftTxt  ->  x.TXT             x.csv, ftTxt   ->  x.csv              x.dat, ftNone  ->  x.dat
ZUAPI void recommend_filename(wchar16* out, const wchar16* in, FILETYPE type);
// Writes a table's name for any other name, and for a table's name the one without extension: a name that ends in .TAB,
// or in a dot if `in` has that ending already. `out` and the limits are as above.
//
//     x.dat  ->  x.TAB                    x              ->  x.TAB              x.tab          ->  x.
ZUAPI void recommend_table_filename(wchar16* out, const wchar16* in);

// Takes a path apart: `path` keeps its directory, with the separator or colon at its end, and `nameOut`, unless null,
// receives the name, of which at most 255 units are taken before the last dot and 256 behind it; an empty one for a
// null `path`.
ZUAPI void splitfilename(wchar16* path, wchar16* nameOut);
// Writes the bare name of a path, without directory, without what follows the last dot, and without blanks at its end
// or before the extension of a type that is left, to a buffer of `size` units with the terminator. Nothing for a `size`
// below 1; an empty name for a null path.
//
//     C:\dir\world .tab  ->  world
ZUAPI void path2something(const wchar16* path, wchar16* out, int size);

// The mode that stands for the flags of a low-level open: omCreate if 0x100 is set, else omReadWrite if 1 or 2 is, else
// omRead.
ZUAPI int level0mode_to_ourmode(int flags);

}  // namespace Torvo
