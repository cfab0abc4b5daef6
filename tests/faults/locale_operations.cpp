// The locale service: queries work on what a thread holds already, and ask for nothing.
#include <Utility/locale_info.h>
#include <Utility/platform/host.h>
#include <Utility/platform/locales.h>
#include <faults/operations.h>

namespace Torvo::test {

Operations LocaleOperations() {
    return {
        {"cLocaleInfo::Create", [](Trial& trial) { TryToMake(trial, [] { return cLocaleInfo::Create(); }); }},
        {"cLocaleInfo::Instance", [] { return cLocaleInfo::Instance(cLocaleInfo::Instance()); }},
        {"platform::GetThreadLocale", [] { return platform::GetThreadLocale() != 0; }},
        {"platform::SetThreadLocale", [] { return platform::SetThreadLocale(platform::GetThreadLocale()); }},
        {"GetLocaleIdentifier", [] { return GetLocaleIdentifier() != 0; }},
        {"GetLocaleInt",
         [] {
             uint32 value = 77;
             return GetLocaleInt(LOCALE_IDATE, &value) && value < 3;
         }},
        {"GetLocaleString",
         [] {
             TextBuffer text;
             return GetLocaleString(LOCALE_SDECIMAL, text.units, 100) && text.units[0] != 0;
         }},
        {"ResetZULocaleInfo", [] { return ResetZULocaleInfo(); }},
        {"GetZULocaleDateInfo",
         [] {
             int16 order = 77;
             TextBuffer separator;
             GetZULocaleDateInfo(true, &order, separator.units);
             return order != 77;
         }},
        {"GetZULocaleNumInfo",
         [] {
             TextBuffer decimal;
             TextBuffer thousand;
             int16 group = 77;
             GetZULocaleNumInfo(true, decimal.units, thousand.units, &group);
             return group != 77;
         }},
        {"GetZULocaleTimeFormat",
         [] {
             TextBuffer format;
             GetZULocaleTimeFormat(true, format.units, 100);
             return format.units[0] != 0;
         }},
        {"GetZULocaleTimeInfo",
         [] {
             bool twelveHour = false;
             int16 markPosition = 77;
             const wchar16* am = nullptr;
             const wchar16* pm = nullptr;
             const wchar16* separator = nullptr;
             const wchar16* separator2 = nullptr;
             GetZULocaleTimeInfo(true, &twelveHour, &markPosition, &am, &pm, &separator, &separator2);
             return markPosition != 77 && separator != nullptr;
         }},
        {"GetCurrencySymbol", [] { return GetCurrencySymbol() != nullptr; }},
        {"GetNumberFmt",
         [] {
             _numberfmtW format = {};
             return GetNumberFmt(&format);
         }},
        {"GetCurrentFmt",
         [] {
             _currencyfmtW format = {};
             return GetCurrentFmt(&format);
         }},
        {"GetNumberFmtPtr", [] { return GetNumberFmtPtr() != nullptr; }},
        {"GetCurrencyFmtPtr", [] { return GetCurrencyFmtPtr() != nullptr; }},
        {"SetDateFormatCallback", [] { return SetDateFormatCallback(GetDateFormatCallback()); }},
        {"GetDateFormatCallback", [] { return GetDateFormatCallback() == GetDateFormatCallback(); }},
        {"SetNumberFormatCallback", [] { return SetNumberFormatCallback(GetNumberFormatCallback()); }},
        {"GetNumberFormatCallback", [] { return GetNumberFormatCallback() == GetNumberFormatCallback(); }},
    };
}

}  // namespace Torvo::test
