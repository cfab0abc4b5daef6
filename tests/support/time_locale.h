// A user's way of writing dates and times, of a test's choosing: stands in for the locale service of the calling
// thread's instance until it goes out of scope. What it does not say about dates and times, the former service answers.
#pragma once

#include <Utility/locale_info.h>

namespace Torvo::test {

struct TimeHabits {
    const wchar16* am = ZUTEXT("AM");
    const wchar16* pm = ZUTEXT("PM");
    int16 markPosition = 0;
    const wchar16* separator = ZUTEXT(":");
    const wchar16* separator2 = ZUTEXT(":");
    int16 dateOrder = 0;
    wchar16 dateSeparator = '/';
};

class TimeLocale {
public:
    explicit TimeLocale(const TimeHabits& habits) : service(habits, *cLocaleInfo::Instance()) {
        former = cLocaleInfo::Instance();
        cLocaleInfo::Instance(&service);
    }
    ~TimeLocale() { cLocaleInfo::Instance(former); }
    TimeLocale(const TimeLocale&) = delete;
    TimeLocale& operator=(const TimeLocale&) = delete;

    // How often the habits were asked for, in the fixed form and in the user's.
    int FixedQuestions() const { return service.fixedQuestions; }
    int UserQuestions() const { return service.userQuestions; }

private:
    class Service final : public cLocaleInfo {
    public:
        Service(const TimeHabits& toAnswer, cLocaleInfo& toAskElse) : habits(toAnswer), other(toAskElse) {}

        bool ResetZULocaleInfo() override { return other.ResetZULocaleInfo(); }
        uint32 GetLocaleIdentifier() override { return other.GetLocaleIdentifier(); }
        bool GetLocaleInt(uint32 type, uint32* value) override { return other.GetLocaleInt(type, value); }
        bool GetLocaleString(uint32 type, wchar16* buffer, uint64 size) override {
            return other.GetLocaleString(type, buffer, size);
        }
        bool SetNumberFormatCallback(bool (*callback)()) override { return other.SetNumberFormatCallback(callback); }
        bool (*GetNumberFormatCallback())() override { return other.GetNumberFormatCallback(); }
        void GetZULocaleNumInfo(bool useLocale, wchar16* decimal, wchar16* thousand, int16* group) override {
            other.GetZULocaleNumInfo(useLocale, decimal, thousand, group);
        }
        const wchar16* GetCurrencySymbol() override { return other.GetCurrencySymbol(); }
        bool GetNumberFmt(_numberfmtW* format) override { return other.GetNumberFmt(format); }
        bool GetCurrentFmt(_currencyfmtW* format) override { return other.GetCurrentFmt(format); }
        _numberfmtW* GetNumberFmtPtr() override { return other.GetNumberFmtPtr(); }
        _currencyfmtW* GetCurrencyFmtPtr() override { return other.GetCurrencyFmtPtr(); }
        bool SetDateFormatCallback(bool (*callback)()) override { return other.SetDateFormatCallback(callback); }
        bool (*GetDateFormatCallback())() override { return other.GetDateFormatCallback(); }
        void GetZULocaleDateInfo(bool useLocale, int16* order, wchar16* separator) override {
            if (!useLocale) return other.GetZULocaleDateInfo(false, order, separator);
            *order = habits.dateOrder;
            *separator = habits.dateSeparator;
        }
        void GetZULocaleTimeFormat(bool useLocale, wchar16* buffer, uint64 size) override {
            other.GetZULocaleTimeFormat(useLocale, buffer, size);
        }
        void GetZULocaleTimeInfo(bool useLocale, bool* twelveHour, int16* markPosition, const wchar16** am,
                                 const wchar16** pm, const wchar16** separator, const wchar16** separator2) override {
            ++(useLocale ? userQuestions : fixedQuestions);
            other.GetZULocaleTimeInfo(false, twelveHour, markPosition, am, pm, separator, separator2);
            if (!useLocale) return;
            *markPosition = habits.markPosition;
            *am = habits.am;
            *pm = habits.pm;
            *separator = habits.separator;
            *separator2 = habits.separator2;
        }

        const TimeHabits habits;
        cLocaleInfo& other;
        int fixedQuestions = 0;
        int userQuestions = 0;
    };

    Service service;
    cLocaleInfo* former;
};

}  // namespace Torvo::test
