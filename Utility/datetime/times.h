// The time of day behind zuTime, which a date-time holds within itself.
#pragma once

#include <Utility/datetime/ticks.h>
#include <Utility/times.h>

#include <ctime>

// The ticks and the same time split into its parts; every change goes through SetTicks or SetTime, which write both.
// The parts are kept small, so that a date-time with its time fits into 48 bytes.
class zuTimeImpl final : public Torvo::zuTime {
public:
    // What the constructors throw.
    enum eCreateError { TicksOutOfRange = 1, BadPart = 2 };

    static constexpr Torvo::int64 LastTick = Torvo::TicksPerDay - 1;

    zuTimeImpl() = default;  // midnight
    explicit zuTimeImpl(Torvo::int64 ticks);
    zuTimeImpl(Torvo::int32 hours, Torvo::int32 minutes, Torvo::int32 seconds, Torvo::int32 fraction);
    ~zuTimeImpl() override = default;
    zuTimeImpl(const zuTimeImpl&) = delete;
    zuTimeImpl& operator=(const zuTimeImpl&) = delete;

    Torvo::int32 GetHours() const override { return hours; }
    Torvo::int32 GetMinutes() const override { return minutes; }
    Torvo::int32 GetSeconds() const override { return seconds; }
    Torvo::int32 GetMilliseconds() const override;
    Torvo::int32 GetFraction() const override { return fraction; }
    Torvo::int64 GetTicks() const override { return ticks; }
    double GetTotalHours() const override;
    double GetTotalMinutes() const override;
    double GetTotalSeconds() const override;
    double GetTotalMilliseconds() const override;
    Torvo::ZU_CMP CompareTo(const Torvo::zuTime* other) const override;
    bool AddSpan(const Torvo::zuTimeSpan* span) override;
    bool AddHours(double value) override;
    bool AddMinutes(double value) override;
    bool AddSeconds(double value) override;
    bool AddTicks(Torvo::int64 delta) override;
    bool SubtractSpan(const Torvo::zuTimeSpan* span) override;
    Torvo::zuTimeSpan* SubtractTime(const Torvo::zuTime* other) const override;
    bool SubtractTicks(Torvo::int64 delta) override;
    bool SetTicks(Torvo::int64 newTicks) override;
    bool SetTime(Torvo::int32 newHours, Torvo::int32 newMinutes, Torvo::int32 newSeconds,
                 Torvo::int32 newFraction) override;
    Torvo::int64 ToLiteral() const override;
    bool ToString(Torvo::wchar16* out, Torvo::int32 outSize, const Torvo::wchar16* pattern) const override;

private:
    bool TurnTo(Torvo::int64 sum);

    Torvo::uint8 hours = 0;
    Torvo::uint8 minutes = 0;
    Torvo::uint8 seconds = 0;
    Torvo::int32 fraction = 0;
    Torvo::int64 ticks = 0;
};

namespace Torvo {

// The time of day by a clock that stores the local date and time, or midnight when it cannot.
zuTime* CreateTimeByClock(bool (*clock)(std::tm*));

}  // namespace Torvo
