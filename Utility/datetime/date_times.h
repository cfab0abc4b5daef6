// The point in time behind zuDateTime.
#pragma once

#include <Utility/date_times.h>
#include <Utility/datetime/times.h>

// The ticks, and the same moment as a date and a time of day. The time lies within the object, which therefore is one
// block of 48 bytes; a value without a time part has one all the same, at midnight, and does not show it.
class zuDateTimeImpl final : public Torvo::zuDateTime {
public:
    // What the constructors throw.
    enum eCreateError { TicksOutOfRange = 1, BadPart = 2 };

    static constexpr Torvo::int64 LastTick = 3'155'378'975'999'999'999;

    explicit zuDateTimeImpl(Torvo::int64 ticks);
    zuDateTimeImpl(Torvo::int32 year, Torvo::int32 month, Torvo::int32 day, Torvo::int32 hours, Torvo::int32 minutes,
                   Torvo::int32 seconds, Torvo::int32 fraction);
    // From a valid date and the ticks of a time; null stands for midnight.
    zuDateTimeImpl(const Torvo::zuDATE* date, const Torvo::zuTime* time);
    // A date that is not looked at, without a time part or with one.
    explicit zuDateTimeImpl(Torvo::zuDATE date);
    zuDateTimeImpl(Torvo::zuDATE date, Torvo::int64 ticksOfTime);
    ~zuDateTimeImpl() override = default;
    zuDateTimeImpl(const zuDateTimeImpl&) = delete;
    zuDateTimeImpl& operator=(const zuDateTimeImpl&) = delete;

    Torvo::int32 GetYear() const override { return date.year; }
    Torvo::int32 GetMonth() const override { return date.month; }
    Torvo::int32 GetDay() const override { return date.day; }
    Torvo::int32 GetHours() const override { return time.GetHours(); }
    Torvo::int32 GetMinutes() const override { return time.GetMinutes(); }
    Torvo::int32 GetSeconds() const override { return time.GetSeconds(); }
    Torvo::int32 GetMilliseconds() const override { return time.GetMilliseconds(); }
    Torvo::int32 GetFraction() const override { return time.GetFraction(); }
    Torvo::int64 GetTicks() const override { return ticks; }
    double GetTotalDays() const override;
    double GetTotalHours() const override;
    double GetTotalMinutes() const override;
    double GetTotalSeconds() const override;
    double GetTotalMilliseconds() const override;
    Torvo::zuDATE* GetDate() override { return &date; }
    Torvo::zuTime* GetTime() override { return hasTime ? &time : nullptr; }
    Torvo::int32 GetDayOfWeek() const override;
    bool SetDateTime(Torvo::int16 year, Torvo::int8 month, Torvo::int8 day, Torvo::int32 hours, Torvo::int32 minutes,
                     Torvo::int32 seconds, Torvo::int32 fraction) override;
    bool SetTicks(Torvo::int64 newTicks) override;
    bool AddSpan(const Torvo::zuTimeSpan* span) override;
    bool AddDays(double value) override;
    bool AddHours(double value) override;
    bool AddMinutes(double value) override;
    bool AddSeconds(double value) override;
    bool AddTicks(Torvo::int64 delta) override;
    bool SubtractSpan(const Torvo::zuTimeSpan* span) override;
    Torvo::zuTimeSpan* SubtractDateTime(const Torvo::zuDateTime* other) const override;
    bool SubtractTicks(Torvo::int64 delta) override;
    bool ToLiteral(Torvo::int32* dateLiteral, Torvo::int64* timeLiteral) const override;
    bool ToString(Torvo::wchar16* out, Torvo::uint64 outSize, Torvo::int16 order, const Torvo::wchar16* delimiter1,
                  const Torvo::wchar16* delimiter2, const Torvo::wchar16* timePattern, bool blank) const override;

private:
    Torvo::zuDATE date{};
    bool hasTime = true;
    zuTimeImpl time;
    Torvo::int64 ticks = 0;
};

namespace Torvo {

// The moment by a clock that stores the local date and time; null when it cannot.
zuDateTime* CreateDateTimeByClock(bool (*clock)(std::tm*));

}  // namespace Torvo
