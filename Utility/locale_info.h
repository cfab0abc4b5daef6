// Locale information: how the user writes numbers, amounts of money, dates and times.
//
// Numbers, dates and times are written and read either in a fixed form or in that of the user's locale. The queries
// below take the choice as their first argument, `useLocale`. With false they answer fixed defaults and ask nobody.
// With true they ask the system anew, every time: a change of the thread's locale or of the user's settings shows at
// the next query, with nothing to notify and nothing to reset. Which of the two a caller wants is up to two callbacks
// that a host may register: without one, the locale is used; with one, it is asked at each decision, and true means the
// fixed form.
//
// A refresh is what happens behind every query that uses the locale: the service reads all its values and keeps them,
// since several queries hand out pointers. Such pointers belong to the service and stay valid as long as it lives; the
// text behind them changes at the next refresh, whoever causes it. A value that the system does not have, or that is
// too long for its place (a date separator of two characters), keeps what it held before; the time format and the two
// marks become their defaults instead, and so does the time separator, of which only the second copy keeps what it
// held. A refresh cannot fail.
//
// The settings belong to the caller's instance, and the locale is that of the calling thread. Calls on one instance
// must not overlap. Nothing here leaves an error record. Sizes are in units of 16 bits, terminator included. A locale
// type is one of the platform's LOCALE_ numbers, the same on every system; those that one asks for most are 14 the
// decimal mark, 15 the mark between groups, 20 the currency symbol, 29 and 30 the date and the time separator, 31 and
// 32 the short and the long date picture, 40 and 41 the morning and the afternoon mark, 4099 the time picture.
//
// Example: examples/families/locale_info.cpp
#pragma once

#include <Utility/platform/types.h>

namespace Torvo {

// The service behind the functions below, which explain the operations.
class ZUAPI cLocaleInfo {
public:
    virtual ~cLocaleInfo() = default;
    virtual bool ResetZULocaleInfo() = 0;
    virtual uint32 GetLocaleIdentifier() = 0;
    virtual bool GetLocaleInt(uint32 lctype, uint32* value) = 0;
    virtual bool GetLocaleString(uint32 lctype, wchar16* buffer, uint64 size) = 0;
    virtual bool SetNumberFormatCallback(bool (*callback)()) = 0;
    virtual bool (*GetNumberFormatCallback())() = 0;
    virtual void GetZULocaleNumInfo(bool useLocale, wchar16* decimal, wchar16* thousand, int16* group) = 0;
    virtual const wchar16* GetCurrencySymbol() = 0;
    virtual bool GetNumberFmt(_numberfmtW* format) = 0;
    virtual bool GetCurrentFmt(_currencyfmtW* format) = 0;
    virtual _numberfmtW* GetNumberFmtPtr() = 0;
    virtual _currencyfmtW* GetCurrencyFmtPtr() = 0;
    virtual bool SetDateFormatCallback(bool (*callback)()) = 0;
    virtual bool (*GetDateFormatCallback())() = 0;
    virtual void GetZULocaleDateInfo(bool useLocale, int16* order, wchar16* separator) = 0;
    virtual void GetZULocaleTimeFormat(bool useLocale, wchar16* buffer, uint64 size) = 0;
    virtual void GetZULocaleTimeInfo(bool useLocale, bool* twelveHour, int16* markPosition, const wchar16** am,
                                     const wchar16** pm, const wchar16** timeSeparator,
                                     const wchar16** timeSeparator2) = 0;

    // A new service with the fixed defaults, which has asked the system nothing yet; owned by the caller. Null if
    // memory is short.
    static cLocaleInfo* Create();
    // The service of the caller's instance.
    static cLocaleInfo* Instance();
    // Replaces it. The former one is not destroyed: who replaces a service owns the old one.
    static bool Instance(cLocaleInfo* service);
};

// The calling thread's locale, asked of the system at each call, and from then on the one that GetLocaleInt and
// GetLocaleString read.
ZUAPI uint32 GetLocaleIdentifier();

// One value as a number: the number with which the locale's text for it begins, so that the grouping "3;2;0" reads as
// 3. False, and *value is left alone, when there is no such value. Reads the locale of the last refresh or
// GetLocaleIdentifier, or the user's default before the first of them.
ZUAPI bool GetLocaleInt(uint32 lctype, uint32* value);

// One value as text, of the same locale. False, and the buffer is left alone, when there is none or when it does not
// fit into `size` units.
ZUAPI bool GetLocaleString(uint32 lctype, wchar16* buffer, uint64 size);

// Refreshes. True.
ZUAPI bool ResetZULocaleInfo();

// The order of a date's parts (0 month, day, year; 1 day, month, year; 2 year, month, day) and the separator: one unit,
// without a terminator. Fixed: 0 and '/'.
ZUAPI void GetZULocaleDateInfo(bool useLocale, int16* order, wchar16* separator);

// The decimal separator, the separator of groups, one unit each without a terminator, and the number of digits in the
// first group. Fixed: '.', ',' and 3. A locale whose two separators are the same, so that numbers could not be read
// back, answers '.' and ',' here; GetNumberFmt and its like show it as it is.
ZUAPI void GetZULocaleNumInfo(bool useLocale, wchar16* decimal, wchar16* thousand, int16* group);

// The picture of a time of day, cut to `size` - 1 units; the rest of the buffer is filled with zeros. Fixed:
// "h:mm:ss tt".
ZUAPI void GetZULocaleTimeFormat(bool useLocale, wchar16* buffer, uint64 size);

// Whether the clock has twelve hours, where the mark stands (0 behind the time, 1 before it), the marks of morning and
// afternoon, and the separator, in two copies. Any output may be null and is then skipped. Fixed: true, 0, "AM", "PM",
// ":" and ":", as constants.
ZUAPI void GetZULocaleTimeInfo(bool useLocale, bool* twelveHour, int16* markPosition, const wchar16** am,
                               const wchar16** pm, const wchar16** timeSeparator, const wchar16** timeSeparator2);

// The currency symbol.
ZUAPI const wchar16* GetCurrencySymbol();

// How numbers and amounts of money are written, as copies of the service's structures; the texts in them are still the
// service's. True.
ZUAPI bool GetNumberFmt(_numberfmtW* format);
ZUAPI bool GetCurrentFmt(_currencyfmtW* format);

// The same, as pointers to the service's own structures.
ZUAPI _numberfmtW* GetNumberFmtPtr();
ZUAPI _currencyfmtW* GetCurrencyFmtPtr();

// Registers the callback that is asked whether dates and times are to be in the fixed form, in place of any earlier
// one; null removes it. True.
ZUAPI bool SetDateFormatCallback(bool (*callback)());
// The registered one, or null.
ZUAPI bool (*GetDateFormatCallback())();

// The same for numbers.
ZUAPI bool SetNumberFormatCallback(bool (*callback)());
ZUAPI bool (*GetNumberFormatCallback())();

}  // namespace Torvo
