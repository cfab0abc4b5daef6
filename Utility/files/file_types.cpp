#include <Utility/files/file_types.h>

#include <Utility/strings.h>

#include <algorithm>
#include <array>
#include <string>

namespace Torvo {

namespace {

struct FileTypeRow {
    const wchar16* extension;
    bool forced;
};

// By number. Two extensions stand twice: the search finds the lower number.
constexpr std::array<FileTypeRow, FileTypeCount> rows{{
    {nullptr, false},          // ftNone
    {ZUTEXT(".TAB"), false},   // ftTab
    {ZUTEXT("."), false},      // ftDot
    {ZUTEXT(".WOR"), false},   // ftWor
    {ZUTEXT(".TXT"), false},   // ftTxt
    {ZUTEXT(".MAP"), true},    // ftMap
    {ZUTEXT(".ID"), true},     // ftId
    {ZUTEXT(".IND"), true},    // ftInd
    {ZUTEXT(".TMA"), true},    // ftTma
    {ZUTEXT(".TIN"), true},    // ftTin
    {ZUTEXT(".TDA"), true},    // ftTda
    {ZUTEXT(".TID"), true},    // ftTid
    {ZUTEXT(".PRF"), false},   // ftPrf
    {ZUTEXT(".HLP"), false},   // ftHlp
    {ZUTEXT(".FNT"), false},   // ftFnt
    {ZUTEXT(".ABB"), false},   // ftAbb
    {ZUTEXT(".ZB"), false},    // ftZb
    {ZUTEXT(".ZBX"), true},    // ftZbx
    {ZUTEXT(".DAT"), false},   // ftDat
    {ZUTEXT(".DBF"), false},   // ftDbf
    {ZUTEXT(".WK1"), false},   // ftWk1
    {ZUTEXT(".WKS"), false},   // ftWks
    {ZUTEXT(".XLS"), false},   // ftXls
    {ZUTEXT(".ZIF"), false},   // ftZif
    {ZUTEXT(".ZMI"), false},   // ftZmi
    {ZUTEXT(".ZBI"), false},   // ftZbi
    {ZUTEXT(".IMG"), false},   // ftImg
    {ZUTEXT(".DXF"), false},   // ftDxf
    {ZUTEXT(".PIC"), false},   // ftPic
    {ZUTEXT(".ZID"), true},    // ftZid
    {ZUTEXT(".RPT"), true},    // ftRpt
    {ZUTEXT(".TAB"), false},   // ftOtherTab
    {ZUTEXT(".BMP"), false},   // ftBmp
    {ZUTEXT(".LAY"), false},   // ftLay
    {ZUTEXT(".PEN"), false},   // ftPen
    {ZUTEXT(".PRJ"), false},   // ftPrj
    {ZUTEXT(".WMF"), false},   // ftWmf
    {nullptr, false},          // ftBare
    {ZUTEXT(".DEF"), false},   // ftDef
    {ZUTEXT(".ERR"), false},   // ftErr
    {ZUTEXT(".EXE"), false},   // ftExe
    {ZUTEXT(".MNU"), false},   // ftMnu
    {ZUTEXT(".ZBO"), true},    // ftZbo
    {ZUTEXT(".ZBP"), false},   // ftZbp
    {ZUTEXT(".CLR"), false},   // ftClr
    {ZUTEXT(".BIL"), false},   // ftBil
    {ZUTEXT(".EPS"), false},   // ftEps
    {ZUTEXT(".RAS"), false},   // ftRas
    {ZUTEXT(".GIF"), false},   // ftGif
    {ZUTEXT(".TIF"), false},   // ftTif
    {ZUTEXT(".TLB"), false},   // ftTlb
    {ZUTEXT(".TMP"), false},   // ftTmp
    {ZUTEXT(".wk3"), false},   // ftWk3
    {ZUTEXT(".cpf"), true},    // ftCpf
    {ZUTEXT(".PCX"), false},   // ftPcx
    {ZUTEXT(".JPG"), false},   // ftJpg
    {ZUTEXT(".TGA"), false},   // ftTga
    {ZUTEXT(".LDA"), true},    // ftLda
    {ZUTEXT(".LMA"), true},    // ftLma
    {ZUTEXT(".LIN"), true},    // ftLin
    {ZUTEXT(".lnk"), false},   // ftLnk
    {ZUTEXT(".sql"), false},   // ftSql
    {ZUTEXT(".wk4"), false},   // ftWk4
    {ZUTEXT(".aid"), false},   // ftAid
    {ZUTEXT(".mdb"), false},   // ftMdb
    {ZUTEXT(".png"), false},   // ftPng
    {ZUTEXT(".psd"), false},   // ftPsd
    {ZUTEXT(".shp"), true},    // ftShp
    {ZUTEXT(".shx"), true},    // ftShx
    {ZUTEXT(".csv"), false},   // ftCsv
    {ZUTEXT(".xml"), false},   // ftXml
    {ZUTEXT(".html"), true},   // ftHtml
    {ZUTEXT(".swf"), true},    // ftSwf
    {ZUTEXT(".xml"), false},   // ftOtherXml
    {ZUTEXT(".gpkg"), false},  // ftGpkg
}};

static_assert(std::all_of(rows.begin(), rows.end(), [](const FileTypeRow& row) {
    return row.extension == nullptr || std::char_traits<wchar16>::length(row.extension) <= LongestExtension;
}));

constexpr FileTypeRow unknown{nullptr, false};

const FileTypeRow& RowOf(FILETYPE type) {
    const auto number = static_cast<std::size_t>(static_cast<int32>(type));
    return number < rows.size() ? rows[number] : unknown;
}

}  // namespace

const wchar16* ExtensionOf(FILETYPE type) {
    return RowOf(type).extension;
}

bool ForcesExtension(FILETYPE type) {
    return RowOf(type).forced;
}

FILETYPE TypeOfExtension(const wchar16* extension) {
    for (std::size_t number = 0; number < rows.size(); ++number) {
        const wchar16* const candidate = rows[number].extension;
        if (candidate != nullptr && striequ(candidate, extension)) return static_cast<FILETYPE>(number);
    }
    return ftNone;
}

}  // namespace Torvo
