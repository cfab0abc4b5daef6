// File types and the modes in which a file is opened.
#pragma once

#include <Utility/platform/types.h>

namespace Torvo {

// What kind of file a name stands for: the type decides the extension that the name must bear.
enum FILETYPE : int32 {
    ftNone = 0,
    ftTab = 1,
    ftDot = 2,
    ftWor = 3,
    ftTxt = 4,
    ftMap = 5,
    ftId = 6,
    ftInd = 7,
    ftTma = 8,
    ftTin = 9,
    ftTda = 10,
    ftTid = 11,
    ftPrf = 12,
    ftHlp = 13,
    ftFnt = 14,
    ftAbb = 15,
    ftZb = 16,
    ftZbx = 17,
    ftDat = 18,
    ftDbf = 19,
    ftWk1 = 20,
    ftWks = 21,
    ftXls = 22,
    ftZif = 23,
    ftZmi = 24,
    ftZbi = 25,
    ftImg = 26,
    ftDxf = 27,
    ftPic = 28,
    ftZid = 29,
    ftRpt = 30,
    ftOtherTab = 31,
    ftBmp = 32,
    ftLay = 33,
    ftPen = 34,
    ftPrj = 35,
    ftWmf = 36,
    ftBare = 37,
    ftDef = 38,
    ftErr = 39,
    ftExe = 40,
    ftMnu = 41,
    ftZbo = 42,
    ftZbp = 43,
    ftClr = 44,
    ftBil = 45,
    ftEps = 46,
    ftRas = 47,
    ftGif = 48,
    ftTif = 49,
    ftTlb = 50,
    ftTmp = 51,
    ftWk3 = 52,
    ftCpf = 53,
    ftPcx = 54,
    ftJpg = 55,
    ftTga = 56,
    ftLda = 57,
    ftLma = 58,
    ftLin = 59,
    ftLnk = 60,
    ftSql = 61,
    ftWk4 = 62,
    ftAid = 63,
    ftMdb = 64,
    ftPng = 65,
    ftPsd = 66,
    ftShp = 67,
    ftShx = 68,
    ftCsv = 69,
    ftXml = 70,
    ftHtml = 71,
    ftSwf = 72,
    ftOtherXml = 73,
    ftGpkg = 74,
};

// How a file is opened.
enum eOpenMode : int32 {
    omRead = 1,       // to read
    omReadWrite = 2,  // to read and write; the file must exist
    omCreate = 3,     // to read and write, created, or emptied if it exists
};

}  // namespace Torvo
