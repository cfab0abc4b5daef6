#include <Utility/text/locale_info.h>

#include <Utility/bounded_copy.h>
#include <Utility/frame/instance_data.h>
#include <Utility/platform/byte_copy.h>
#include <Utility/platform/platform.h>
#include <Utility/text/locale_value.h>

#include <algorithm>
#include <cstring>
#include <iterator>
#include <new>
#include <tuple>
#include <typeinfo>

namespace Torvo {

namespace {

// The fixed forms.
constexpr wchar16 FixedTimeFormat[] = ZUTEXT("h:mm:ss tt");
constexpr wchar16 FixedMorningMark[] = ZUTEXT("AM");
constexpr wchar16 FixedAfternoonMark[] = ZUTEXT("PM");
constexpr wchar16 FixedTimeSeparator[] = ZUTEXT(":");

// Room for the longest values that the library reads.
using Value = LocaleValue<80>;

std::unique_ptr<wchar16[]> NewText(const wchar16* text, uint64 size) {
    std::unique_ptr<wchar16[]> block(new (std::nothrow) wchar16[size]);
    if (block == nullptr) throw cLocaleInfoImpl::OutOfMemory;
    strcpyn(block.get(), text, size);
    return block;
}

template <typename T>
void Store(T* target, T value) {
    if (target != nullptr) *target = value;
}

auto Members(const _numberfmtW& format) {
    return std::tie(format.NumDigits, format.LeadingZero, format.Grouping, format.lpDecimalSep, format.lpThousandSep,
                    format.NegativeOrder);
}

auto Members(const _currencyfmtW& format) {
    return std::tie(format.NumDigits, format.LeadingZero, format.Grouping, format.lpDecimalSep, format.lpThousandSep,
                    format.NegativeOrder, format.PositiveOrder, format.lpCurrencySymbol);
}

}  // namespace

cLocaleInfoImpl::cLocaleInfoImpl()
    : numberDecimal(NewText(ZUTEXT("."), SeparatorSize)),
      numberThousand(NewText(ZUTEXT(","), SeparatorSize)),
      currencyDecimal(NewText(ZUTEXT("."), SeparatorSize)),
      currencyThousand(NewText(ZUTEXT(","), SeparatorSize)),
      currencySymbol(NewText(ZUTEXT("$"), CurrencySymbolSize)) {
    currencyFormat.NumDigits = 2;
    currencyFormat.Grouping = 3;
    currencyFormat.lpDecimalSep = currencyDecimal.get();
    currencyFormat.lpThousandSep = currencyThousand.get();
    currencyFormat.lpCurrencySymbol = currencySymbol.get();
    numberFormat.NumDigits = 2;
    numberFormat.Grouping = 3;
    numberFormat.lpDecimalSep = numberDecimal.get();
    numberFormat.lpThousandSep = numberThousand.get();
}

bool cLocaleInfoImpl::ResetZULocaleInfo() {
    RefreshLocale();
    return true;
}

uint32 cLocaleInfoImpl::GetLocaleIdentifier() {
    localeIdentifier = platform::GetThreadLocale();
    return localeIdentifier;
}

bool cLocaleInfoImpl::GetLocaleInt(uint32 lctype, uint32* value) {
    const Value read(localeIdentifier, lctype);
    if (read.Units() == 0 || value == nullptr) return false;
    *value = static_cast<uint32>(platform::_wtoi(read.Text()));
    return true;
}

bool cLocaleInfoImpl::GetLocaleString(uint32 lctype, wchar16* buffer, uint64 size) {
    const Value read(localeIdentifier, lctype);
    const auto units = static_cast<uint64>(read.Units());
    if (units == 0 || units > size || buffer == nullptr) return false;
    platform::CopyUnits(buffer, read.Text(), units);
    return true;
}

bool cLocaleInfoImpl::SetNumberFormatCallback(bool (*callback)()) {
    numberFormatCallback = callback;
    return true;
}

bool (*cLocaleInfoImpl::GetNumberFormatCallback())() {
    return numberFormatCallback;
}

void cLocaleInfoImpl::GetZULocaleNumInfo(bool useLocale, wchar16* decimal, wchar16* thousand, int16* group) {
    if (useLocale) RefreshLocale();
    Store(decimal, useLocale ? decimalSeparator[0] : wchar16{'.'});
    Store(thousand, useLocale ? thousandSeparator[0] : wchar16{','});
    Store(group, useLocale ? groupSize : int16{3});
}

const wchar16* cLocaleInfoImpl::GetCurrencySymbol() {
    RefreshAndShow();
    return currencyFormat.lpCurrencySymbol;
}

bool cLocaleInfoImpl::GetNumberFmt(_numberfmtW* format) {
    RefreshAndShow();
    Store(format, numberFormat);
    return format != nullptr;
}

bool cLocaleInfoImpl::GetCurrentFmt(_currencyfmtW* format) {
    RefreshAndShow();
    Store(format, currencyFormat);
    return format != nullptr;
}

_numberfmtW* cLocaleInfoImpl::GetNumberFmtPtr() {
    RefreshAndShow();
    return &numberFormat;
}

_currencyfmtW* cLocaleInfoImpl::GetCurrencyFmtPtr() {
    RefreshAndShow();
    return &currencyFormat;
}

bool cLocaleInfoImpl::SetDateFormatCallback(bool (*callback)()) {
    dateFormatCallback = callback;
    return true;
}

bool (*cLocaleInfoImpl::GetDateFormatCallback())() {
    return dateFormatCallback;
}

void cLocaleInfoImpl::GetZULocaleDateInfo(bool useLocale, int16* order, wchar16* separator) {
    if (useLocale) RefreshLocale();
    Store(order, useLocale ? dateOrder : int16{0});
    Store(separator, useLocale ? dateSeparator[0] : wchar16{'/'});
}

void cLocaleInfoImpl::GetZULocaleTimeFormat(bool useLocale, wchar16* buffer, uint64 size) {
    if (useLocale) RefreshLocale();
    if (buffer != nullptr) strcpyn(buffer, useLocale ? timeFormat : FixedTimeFormat, size);
}

void cLocaleInfoImpl::GetZULocaleTimeInfo(bool useLocale, bool* twelveHour, int16* markPosition, const wchar16** am,
                                          const wchar16** pm, const wchar16** separator, const wchar16** separator2) {
    if (useLocale) RefreshLocale();
    Store(twelveHour, useLocale ? twelveHourClock : true);
    Store(markPosition, useLocale ? timeMarkPosition : int16{0});
    Store(am, useLocale ? static_cast<const wchar16*>(morningMark) : FixedMorningMark);
    Store(pm, useLocale ? static_cast<const wchar16*>(afternoonMark) : FixedAfternoonMark);
    Store(separator, useLocale ? static_cast<const wchar16*>(timeSeparator) : FixedTimeSeparator);
    Store(separator2, useLocale ? static_cast<const wchar16*>(timeSeparator2) : FixedTimeSeparator);
}

cLocaleInfoImpl::Shown cLocaleInfoImpl::WhatIsShown() const {
    Shown shown;
    shown.numberFormat = numberFormat;
    shown.currencyFormat = currencyFormat;
    const Text* const separators[] = {&numberDecimal, &numberThousand, &currencyDecimal, &currencyThousand};
    for (std::size_t i = 0; i < std::size(separators); ++i) {
        std::memcpy(shown.separators[i], separators[i]->get(), sizeof shown.separators[i]);
    }
    std::memcpy(shown.symbol, currencySymbol.get(), sizeof shown.symbol);
    return shown;
}

// Compares in place: this is on the road of each date and time that is read.
bool cLocaleInfoImpl::IsStillShown(const Shown& shown) const {
    const auto isSeparator = [&shown](const Text& text, std::size_t index) {
        return std::memcmp(text.get(), shown.separators[index], sizeof shown.separators[index]) == 0;
    };
    return isSeparator(numberDecimal, 0) && isSeparator(numberThousand, 1) && isSeparator(currencyDecimal, 2) &&
           isSeparator(currencyThousand, 3) && std::equal(shown.symbol, std::end(shown.symbol), currencySymbol.get()) &&
           Members(numberFormat) == Members(shown.numberFormat) &&
           Members(currencyFormat) == Members(shown.currencyFormat);
}

// Whether a refresh would change nothing: no value of the locale can have changed since the last one, and no caller has
// written to what it can reach. Only a derived service, whose operations may answer anything, would see the difference.
// This saves time and nothing else.
bool cLocaleInfoImpl::IsFresh() const {
    return localeIdentifier == refreshedLocale && platform::LocaleValuesAreFixed() &&
           typeid(*this) == typeid(cLocaleInfoImpl) && (!isShown || IsStillShown(refreshed));
}

void cLocaleInfoImpl::RefreshAndShow() {
    RefreshLocale();
    isShown = true;
}

// Reads everything, in a fixed order. A value that cannot be read keeps what it held, unless a step says otherwise.
void cLocaleInfoImpl::RefreshLocale() {
    localeIdentifier = GetLocaleIdentifier();
    if (IsFresh()) return;
    RefreshNumbers();
    RefreshCurrency();
    // A number whose two separators are the same could not be read back. The structures keep showing them as they are.
    if (decimalSeparator[0] == thousandSeparator[0]) {
        strcpyn(decimalSeparator, ZUTEXT("."), SeparatorSize);
        strcpyn(thousandSeparator, ZUTEXT(","), SeparatorSize);
    }
    const bool isKnown = RefreshDates();
    RefreshTimes();
    refreshedLocale = isKnown ? localeIdentifier : 0;
    refreshed = WhatIsShown();
}

void cLocaleInfoImpl::RefreshNumbers() {
    GetLocaleInt(LOCALE_IDIGITS, &numberFormat.NumDigits);
    GetLocaleInt(LOCALE_ILZERO, &numberFormat.LeadingZero);
    if (GetLocaleInt(LOCALE_SGROUPING, &numberFormat.Grouping)) groupSize = static_cast<int16>(numberFormat.Grouping);
    if (GetLocaleString(LOCALE_SDECIMAL, numberDecimal.get(), SeparatorSize)) {
        strcpyn(decimalSeparator, numberDecimal.get(), SeparatorSize);
    }
    if (GetLocaleString(LOCALE_STHOUSAND, numberThousand.get(), SeparatorSize)) {
        strcpyn(thousandSeparator, numberThousand.get(), SeparatorSize);
    }
    GetLocaleInt(LOCALE_INEGNUMBER, &numberFormat.NegativeOrder);
}

void cLocaleInfoImpl::RefreshCurrency() {
    GetLocaleInt(LOCALE_ICURRDIGITS, &currencyFormat.NumDigits);
    currencyFormat.LeadingZero = numberFormat.LeadingZero;
    GetLocaleInt(LOCALE_SMONGROUPING, &currencyFormat.Grouping);
    GetLocaleString(LOCALE_SMONDECIMALSEP, currencyDecimal.get(), SeparatorSize);
    GetLocaleString(LOCALE_SMONTHOUSANDSEP, currencyThousand.get(), SeparatorSize);
    GetLocaleInt(LOCALE_INEGCURR, &currencyFormat.NegativeOrder);
    GetLocaleInt(LOCALE_ICURRENCY, &currencyFormat.PositiveOrder);
    GetLocaleString(LOCALE_SCURRENCY, currencySymbol.get(), CurrencySymbolSize);
}

bool cLocaleInfoImpl::RefreshDates() {
    GetLocaleString(LOCALE_SDATE, dateSeparator, std::size(dateSeparator));
    uint32 order;
    const bool isKnown = GetLocaleInt(LOCALE_IDATE, &order);
    if (isKnown) dateOrder = static_cast<int16>(order);
    return isKnown;
}

void cLocaleInfoImpl::RefreshTimes() {
    if (!GetLocaleString(LOCALE_STIMEFORMAT, timeFormat, std::size(timeFormat))) {
        strcpyn(timeFormat, FixedTimeFormat, std::size(timeFormat));
    }
    if (!GetLocaleString(LOCALE_S1159, morningMark, std::size(morningMark))) {
        strcpyn(morningMark, FixedMorningMark, std::size(morningMark));
    }
    if (!GetLocaleString(LOCALE_S2359, afternoonMark, std::size(afternoonMark))) {
        strcpyn(afternoonMark, FixedAfternoonMark, std::size(afternoonMark));
    }
    // On failure the second copy keeps its value; only the first goes back to the default.
    if (GetLocaleString(LOCALE_STIME, timeSeparator, std::size(timeSeparator))) {
        strcpyn(timeSeparator2, timeSeparator, std::size(timeSeparator2));
    } else {
        strcpyn(timeSeparator, FixedTimeSeparator, std::size(timeSeparator));
    }
    wchar16 text[256];
    if (GetLocaleString(LOCALE_ITIME, text, std::size(text))) twelveHourClock = platform::_wtoi(text) == 0;
    if (GetLocaleString(LOCALE_ITIMEMARKPOSN, text, std::size(text))) {
        timeMarkPosition = static_cast<int16>(platform::_wtoi(text));
    }
}

cLocaleInfo* cLocaleInfo::Create() {
    try {
        return new (std::nothrow) cLocaleInfoImpl;
    } catch (cLocaleInfoImpl::eCreateError) {
        return nullptr;
    }
}

cLocaleInfo* cLocaleInfo::Instance() {
    return ServiceInstance<cLocaleInfo, ServiceKey::LocaleInfo>();
}

bool cLocaleInfo::Instance(cLocaleInfo* service) {
    return SetServiceInstance<cLocaleInfo, ServiceKey::LocaleInfo>(service);
}

uint32 GetLocaleIdentifier() {
    return cLocaleInfo::Instance()->GetLocaleIdentifier();
}

bool GetLocaleInt(uint32 lctype, uint32* value) {
    return cLocaleInfo::Instance()->GetLocaleInt(lctype, value);
}

bool GetLocaleString(uint32 lctype, wchar16* buffer, uint64 size) {
    return cLocaleInfo::Instance()->GetLocaleString(lctype, buffer, size);
}

bool ResetZULocaleInfo() {
    return cLocaleInfo::Instance()->ResetZULocaleInfo();
}

void GetZULocaleDateInfo(bool useLocale, int16* order, wchar16* separator) {
    cLocaleInfo::Instance()->GetZULocaleDateInfo(useLocale, order, separator);
}

void GetZULocaleNumInfo(bool useLocale, wchar16* decimal, wchar16* thousand, int16* group) {
    cLocaleInfo::Instance()->GetZULocaleNumInfo(useLocale, decimal, thousand, group);
}

void GetZULocaleTimeFormat(bool useLocale, wchar16* buffer, uint64 size) {
    cLocaleInfo::Instance()->GetZULocaleTimeFormat(useLocale, buffer, size);
}

void GetZULocaleTimeInfo(bool useLocale, bool* twelveHour, int16* markPosition, const wchar16** am, const wchar16** pm,
                         const wchar16** timeSeparator, const wchar16** timeSeparator2) {
    cLocaleInfo::Instance()->GetZULocaleTimeInfo(useLocale, twelveHour, markPosition, am, pm, timeSeparator,
                                                 timeSeparator2);
}

const wchar16* GetCurrencySymbol() {
    return cLocaleInfo::Instance()->GetCurrencySymbol();
}

bool GetNumberFmt(_numberfmtW* format) {
    return cLocaleInfo::Instance()->GetNumberFmt(format);
}

bool GetCurrentFmt(_currencyfmtW* format) {
    return cLocaleInfo::Instance()->GetCurrentFmt(format);
}

_numberfmtW* GetNumberFmtPtr() {
    return cLocaleInfo::Instance()->GetNumberFmtPtr();
}

_currencyfmtW* GetCurrencyFmtPtr() {
    return cLocaleInfo::Instance()->GetCurrencyFmtPtr();
}

bool SetDateFormatCallback(bool (*callback)()) {
    return cLocaleInfo::Instance()->SetDateFormatCallback(callback);
}

bool (*GetDateFormatCallback())() {
    return cLocaleInfo::Instance()->GetDateFormatCallback();
}

bool SetNumberFormatCallback(bool (*callback)()) {
    return cLocaleInfo::Instance()->SetNumberFormatCallback(callback);
}

bool (*GetNumberFormatCallback())() {
    return cLocaleInfo::Instance()->GetNumberFormatCallback();
}

}  // namespace Torvo
