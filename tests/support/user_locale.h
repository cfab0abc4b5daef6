// A user's way of writing numbers, of a test's choosing: stands in for the locale service of the calling thread's
// instance until it goes out of scope.
#pragma once

#include <Utility/locale_info.h>

namespace Torvo::test {

class UserLocale {
public:
    UserLocale(wchar16 decimal, wchar16 thousands, int16 groupSize, const wchar16* currency = ZUTEXT("$"))
        : former(cLocaleInfo::Instance()) {
        service.decimalText[0] = decimal;
        service.thousandsText[0] = thousands;
        service.group = groupSize;
        service.currency = currency;
        service.numbers.lpDecimalSep = service.decimalText;
        service.numbers.lpThousandSep = service.thousandsText;
        cLocaleInfo::Instance(&service);
    }
    ~UserLocale() { cLocaleInfo::Instance(former); }
    UserLocale(const UserLocale&) = delete;
    UserLocale& operator=(const UserLocale&) = delete;

    // Makes the service answer no structure, structures without texts, or no currency symbol.
    void HideFormat() { service.hideFormat = true; }
    // What GetLocaleIdentifier answers; 0 unless set.
    void SetIdentifier(uint32 lcid) { service.identifier = lcid; }
    void HideTexts() { service.numbers.lpDecimalSep = service.numbers.lpThousandSep = nullptr; }

private:
    class Service final : public cLocaleInfo {
    public:
        bool ResetZULocaleInfo() override { return true; }
        uint32 GetLocaleIdentifier() override { return identifier; }
        bool GetLocaleInt(uint32, uint32*) override { return false; }
        bool GetLocaleString(uint32, wchar16*, uint64) override { return false; }
        bool SetNumberFormatCallback(bool (*toStore)()) override {
            callback = toStore;
            return true;
        }
        bool (*GetNumberFormatCallback())() override { return callback; }
        void GetZULocaleNumInfo(bool useLocale, wchar16* decimal, wchar16* thousand, int16* groupSize) override {
            *decimal = useLocale ? decimalText[0] : wchar16{'.'};
            *thousand = useLocale ? thousandsText[0] : wchar16{','};
            *groupSize = useLocale ? group : int16{3};
        }
        const wchar16* GetCurrencySymbol() override { return currency; }
        bool GetNumberFmt(_numberfmtW* format) override {
            *format = numbers;
            return true;
        }
        bool GetCurrentFmt(_currencyfmtW*) override { return false; }
        _numberfmtW* GetNumberFmtPtr() override { return hideFormat ? nullptr : &numbers; }
        _currencyfmtW* GetCurrencyFmtPtr() override { return nullptr; }
        bool SetDateFormatCallback(bool (*)()) override { return false; }
        bool (*GetDateFormatCallback())() override { return nullptr; }
        void GetZULocaleDateInfo(bool, int16*, wchar16*) override {}
        void GetZULocaleTimeFormat(bool, wchar16*, uint64) override {}
        void GetZULocaleTimeInfo(bool, bool*, int16*, const wchar16**, const wchar16**, const wchar16**,
                                 const wchar16**) override {}

        bool (*callback)() = nullptr;
        wchar16 decimalText[2] = {};
        wchar16 thousandsText[2] = {};
        int16 group = 3;
        const wchar16* currency = nullptr;
        _numberfmtW numbers{};
        bool hideFormat = false;
        uint32 identifier = 0;
    };

    Service service;
    cLocaleInfo* const former;
};

}  // namespace Torvo::test
