// The locale settings of an instance, as last read from the system.
#pragma once

#include <Utility/locale_info.h>

#include <memory>

namespace Torvo {

// All reads of a refresh go through the object's own virtual operations, so a service derived from this one can supply
// single values.
class cLocaleInfoImpl : public cLocaleInfo {
public:
    // What the constructor throws.
    enum eCreateError { OutOfMemory = 1 };

    cLocaleInfoImpl();
    ~cLocaleInfoImpl() override = default;
    cLocaleInfoImpl(const cLocaleInfoImpl&) = delete;
    cLocaleInfoImpl& operator=(const cLocaleInfoImpl&) = delete;

    bool ResetZULocaleInfo() override;
    uint32 GetLocaleIdentifier() override;
    bool GetLocaleInt(uint32 lctype, uint32* value) override;
    bool GetLocaleString(uint32 lctype, wchar16* buffer, uint64 size) override;
    bool SetNumberFormatCallback(bool (*callback)()) override;
    bool (*GetNumberFormatCallback())() override;
    void GetZULocaleNumInfo(bool useLocale, wchar16* decimal, wchar16* thousand, int16* group) override;
    const wchar16* GetCurrencySymbol() override;
    bool GetNumberFmt(_numberfmtW* format) override;
    bool GetCurrentFmt(_currencyfmtW* format) override;
    _numberfmtW* GetNumberFmtPtr() override;
    _currencyfmtW* GetCurrencyFmtPtr() override;
    bool SetDateFormatCallback(bool (*callback)()) override;
    bool (*GetDateFormatCallback())() override;
    void GetZULocaleDateInfo(bool useLocale, int16* order, wchar16* separator) override;
    void GetZULocaleTimeFormat(bool useLocale, wchar16* buffer, uint64 size) override;
    void GetZULocaleTimeInfo(bool useLocale, bool* twelveHour, int16* markPosition, const wchar16** am,
                             const wchar16** pm, const wchar16** timeSeparator,
                             const wchar16** timeSeparator2) override;

private:
    using Text = std::unique_ptr<wchar16[]>;

    static constexpr std::size_t SeparatorSize = 2;
    static constexpr std::size_t CurrencySymbolSize = 16;

    // What callers can write to, since they get pointers to it: the two structures and the texts behind them.
    struct Shown {
        _numberfmtW numberFormat{};
        _currencyfmtW currencyFormat{};
        wchar16 separators[4][SeparatorSize]{};
        wchar16 symbol[CurrencySymbolSize]{};
    };

    void RefreshLocale();
    // For the queries that hand out what a caller can write to.
    void RefreshAndShow();
    void RefreshNumbers();
    void RefreshCurrency();
    // Whether the system knows the locale.
    bool RefreshDates();
    void RefreshTimes();
    bool IsFresh() const;
    Shown WhatIsShown() const;
    bool IsStillShown(const Shown& shown) const;

    uint32 localeIdentifier = 0;
    bool (*numberFormatCallback)() = nullptr;
    wchar16 decimalSeparator[2] = ZUTEXT(".");
    wchar16 thousandSeparator[2] = ZUTEXT(",");
    int16 groupSize = 3;
    bool (*dateFormatCallback)() = nullptr;
    wchar16 dateSeparator[2] = ZUTEXT("/");
    int16 dateOrder = 0;
    _currencyfmtW currencyFormat{};
    _numberfmtW numberFormat{};
    bool twelveHourClock = true;
    int16 timeMarkPosition = 0;
    wchar16 morningMark[20] = ZUTEXT("AM");
    wchar16 afternoonMark[20] = ZUTEXT("PM");
    wchar16 timeSeparator[4] = ZUTEXT(":");
    wchar16 timeSeparator2[4] = ZUTEXT(":");
    wchar16 timeFormat[36] = ZUTEXT("h:mm:ss tt");

    // The texts that the two structures point to. A refresh writes them here, wherever a caller may have turned the
    // pointers of the structures.
    Text numberDecimal;
    Text numberThousand;
    Text currencyDecimal;
    Text currencyThousand;
    Text currencySymbol;

    // The locale of the last refresh, 0 before it, and what it left for callers to see.
    uint32 refreshedLocale = 0;
    Shown refreshed;
    // Whether any caller has ever got hold of it.
    bool isShown = false;
};

}  // namespace Torvo
