#include <Utility/charsets.h>

#include <Utility/bounded_copy.h>
#include <Utility/frame/instance_data.h>
#include <Utility/locale_info.h>
#include <Utility/platform/locales.h>
#include <Utility/platform/runtime.h>
#include <Utility/platform/text.h>
#include <Utility/text/charset_table.h>

#include <climits>
#include <new>

namespace Torvo {

namespace {

constexpr const wchar16* oldNameANSI = ZUTEXT("ANSI");
constexpr const wchar16* oldNameMAC = ZUTEXT("MAC");
constexpr const wchar16* oldNameXASCII = ZUTEXT("XASCII");
constexpr const wchar16* oldNameLICS = ZUTEXT("LICS");

// What stands in for the row of a value that is no set.
constexpr sCharsetEntry noCharset = {ZUTEXT(""), false, '_', ZUTEXT("\r\n")};

const sCharsetEntry& Row(ZUCHARSET cs) {
    return IsCharset(cs) ? charsetTable[cs] : noCharset;
}

bool EqualIgnoringCase(const wchar16* a, const wchar16* b) {
    return platform::_wcsicmp(a, b) == 0;
}

ZUCHARSET FindByName(const wchar16* name) {
    for (int32 cs = 0; cs < charsetCount; ++cs) {
        if (EqualIgnoringCase(charsetTable[cs].name, name)) return static_cast<ZUCHARSET>(cs);
    }
    return csUnknown;
}

// The ANSI code page of a locale, 0 if it has none.
int AnsiCodePage(uint32 locale) {
    constexpr int size = 50;
    const int length = platform::GetLocaleInfoW(locale, LOCALE_IDEFAULTANSICODEPAGE, nullptr, 0);
    wchar16 digits[size];
    if (length > size || platform::GetLocaleInfoW(locale, LOCALE_IDEFAULTANSICODEPAGE, digits, size) == 0) return 0;
    return platform::_wtoi(digits);
}

ZUCHARSET CharsetOfAnsiCodePage(int codePage) {
    switch (codePage) {
        case 874:
            return csWindowsThai;
        case 932:
            return csWindowsJapanese;
        case 936:
            return csWindowsSimpChinese;
        case 949:
            return csWindowsKorean;
        case 950:
            return csWindowsTradChinese;
        case 1250:
            return csWindowsLatin2;
        case 1251:
            return csWindowsCyrillic;
        case 1252:
            return csWindowsLatin1;
        case 1253:
            return csWindowsGreek;
        case 1254:
            return csWindowsTurkish;
        case 1255:
            return csWindowsHebrew;
        case 1256:
            return csWindowsArabic;
        case 1257:
            return csWindowsBalticRim;
        case 1258:
            return csWindowsVietnamese;
        default:
            return csNeutral;
    }
}

class cCharsetInfoImpl final : public cCharsetInfo {
public:
    ZUCHARSET system_charset() override { return systemCharset; }

private:
    const ZUCHARSET systemCharset = CharsetOfAnsiCodePage(AnsiCodePage(GetLocaleIdentifier()));
};

// The code page in which StringByteLength measures.
uint32 CodePageToMeasureIn(ZUCHARSET cs) {
    const auto codePage = static_cast<uint32>(GetWinCodePage(cs));
    return platform::IsValidCodePage(codePage) ? codePage : static_cast<uint32>(GetWinCodePage(system_charset()));
}

}  // namespace

cCharsetInfo* cCharsetInfo::Create() {
    return new (std::nothrow) cCharsetInfoImpl;
}

cCharsetInfo* cCharsetInfo::Instance() {
    return ServiceInstance<cCharsetInfo, ServiceKey::CharsetInfo>();
}

bool cCharsetInfo::Instance(cCharsetInfo* service) {
    return SetServiceInstance<cCharsetInfo, ServiceKey::CharsetInfo>(service);
}

ZUCHARSET system_charset() {
    return cCharsetInfo::Instance()->system_charset();
}

const wchar16* CS2Str(ZUCHARSET cs) {
    return Row(cs).name;
}

const wchar16* CharsetName(ZUCHARSET cs) {
    return Row(cs).name;
}

const wchar16* CS2OldStr(ZUCHARSET cs) {
    switch (cs) {
        case csMacRoman:
            return oldNameMAC;
        case csCodePage437:
            return oldNameXASCII;
        case csLICS:
            return oldNameLICS;
        default:
            return oldNameANSI;
    }
}

ZUCHARSET Str2CS(const wchar16* name) {
    if (name == nullptr) return csUnknown;
    if (EqualIgnoringCase(name, oldNameANSI)) return system_charset();
    if (EqualIgnoringCase(name, oldNameMAC)) return csMacRoman;
    if (EqualIgnoringCase(name, oldNameLICS)) return csLICS;
    if (EqualIgnoringCase(name, oldNameXASCII)) return csCodePage437;
    return FindByName(name);
}

const wchar16* CharsetANSI() {
    return oldNameANSI;
}

const wchar16* CharsetMAC() {
    return oldNameMAC;
}

const wchar16* CharsetXASCII() {
    return oldNameXASCII;
}

const wchar16* CharsetLICS() {
    return oldNameLICS;
}

const wchar16* CharsetSlashN(ZUCHARSET cs) {
    return Row(cs).newline;
}

uint8 CharsetUnknownCode(ZUCHARSET cs) {
    return Row(cs).unknownCode;
}

bool CharsetDBCS(ZUCHARSET cs) {
    return Row(cs).isDBCS;
}

bool IS_DBCS_CHARSET(ZUCHARSET cs) {
    return CharsetDBCS(cs);
}

bool IsUnicodeCharset(ZUCHARSET cs) {
    return cs == csUTF8 || cs == csUTF16;
}

int32 GetWinCodePage(ZUCHARSET cs) {
    return IsCharset(cs) ? charsetCodePages[cs] : -1;
}

bool IsStrConvertNecessary(ZUCHARSET a, ZUCHARSET b) {
    return a != b && IsCharset(a) && IsCharset(b) && a != csNeutral && b != csNeutral;
}

uint64 StringByteLength(const wchar16* s, ZUCHARSET cs) {
    if (s == nullptr) return 0;
    const uint64 length = platform::wcslen(s);
    if (cs == csUTF16) return 2 * length;
    if (length > INT_MAX) return 0;
    const uint32 flags = cs == csUTF8 ? 0 : WC_COMPOSITECHECK;
    const int bytes = platform::WideCharToMultiByte(CodePageToMeasureIn(cs), flags, s, static_cast<int>(length),
                                                    nullptr, 0, nullptr, nullptr);
    return static_cast<uint64>(bytes);
}

bool LCIDToName(uint32 lcid, wchar16* out, uint64 size) {
    constexpr int longestName = 85;
    if (out == nullptr || lcid == 0) return false;
    wchar16 name[longestName];
    if (platform::LCIDToLocaleName(lcid, name, longestName, LOCALE_ALLOW_NEUTRAL_NAMES) == 0) return false;
    strcpyn(out, name, size);
    return true;
}

}  // namespace Torvo
