#include <Utility/text/byte_walk.h>

#include <Utility/platform/text.h>

#include <algorithm>
#include <iterator>

namespace Torvo {

namespace {

struct LeadBytes {
    ZUCHARSET charset;
    uint8 first;
    uint8 last;
};

constexpr LeadBytes leadBytes[] = {
    {csWindowsTradChinese, 0xA1, 0xC6}, {csWindowsTradChinese, 0xC9, 0xF9}, {csWindowsSimpChinese, 0x81, 0xFE},  //
    {csWindowsJapanese, 0x81, 0x84},    {csWindowsJapanese, 0x87, 0x9F},    {csWindowsJapanese, 0xE0, 0xEA},
    {csWindowsJapanese, 0xED, 0xEE},    {csWindowsJapanese, 0xFA, 0xFC},                                     //
    {csWindowsKorean, 0x81, 0xC8},      {csWindowsKorean, 0xCA, 0xFD},      {csMacTradChinese, 0x90, 0xAF},  //
    {csMacKorean, 0x90, 0xAF},                                                                               //
    {csMacJapanese, 0x81, 0x9F},        {csMacJapanese, 0xE0, 0xFC},        {csPackedEUCJapanese, 0x81, 0x9F},
    {csPackedEUCJapanese, 0xE0, 0xEF},
};

ZUCHARSET CharsetOrSystem(int cs) {
    return cs < 1 ? system_charset() : static_cast<ZUCHARSET>(cs);
}

}  // namespace

bool CharsetLeadByteEx(const char* p, int cs) {
    const ZUCHARSET charset = CharsetOrSystem(cs);
    return CharsetDBCS(charset) &&
           platform::IsDBCSLeadByteEx(static_cast<uint32>(GetWinCodePage(charset)), static_cast<uint8>(*p));
}

char* CharsetNextChar(char* p, int cs) {
    return platform::CharNextExA(static_cast<uint16>(GetWinCodePage(CharsetOrSystem(cs))), p, 0);
}

bool CharsetIsLeadByte(const unsigned char* p, ZUCHARSET cs) {
    const ZUCHARSET charset = CharsetOrSystem(cs);
    return std::any_of(std::begin(leadBytes), std::end(leadBytes), [byte = *p, charset](const LeadBytes& range) {
        return range.charset == charset && byte >= range.first && byte <= range.last;
    });
}

}  // namespace Torvo
