// The length of time behind zuTimeSpan.
#pragma once

#include <Utility/datetime/ticks.h>
#include <Utility/time_spans.h>

// One word of data: the parts are worked out when they are asked for.
class zuTimeSpanImpl final : public Torvo::zuTimeSpan {
public:
    // What summing up parts throws, in the constructor and in SetParts.
    enum eCreateError { Overflow = 1 };

    explicit zuTimeSpanImpl(Torvo::int64 fromTicks) : ticks(fromTicks) {}
    zuTimeSpanImpl(Torvo::int32 days, Torvo::int32 hours, Torvo::int32 minutes, Torvo::int32 seconds,
                   Torvo::int32 fraction);
    ~zuTimeSpanImpl() override = default;
    zuTimeSpanImpl(const zuTimeSpanImpl&) = delete;
    zuTimeSpanImpl& operator=(const zuTimeSpanImpl&) = delete;

    Torvo::int32 GetDays() const override;
    Torvo::int32 GetHours() const override;
    Torvo::int32 GetMinutes() const override;
    Torvo::int32 GetSeconds() const override;
    Torvo::int32 GetMilliseconds() const override;
    Torvo::int32 GetFraction() const override;
    Torvo::int64 GetTicks() const override { return ticks; }
    double GetTotalDays() const override;
    double GetTotalHours() const override;
    double GetTotalMinutes() const override;
    double GetTotalSeconds() const override;
    double GetTotalMilliseconds() const override;
    bool SetParts(Torvo::int32 days, Torvo::int32 hours, Torvo::int32 minutes, Torvo::int32 seconds,
                  Torvo::int32 fraction) override;
    bool SetTicks(Torvo::int64 newTicks) override;
    Torvo::ZU_CMP CompareTo(const Torvo::zuTimeSpan* other) const override;
    bool AddSpan(const Torvo::zuTimeSpan* span) override;
    bool SubtractSpan(const Torvo::zuTimeSpan* span) override;
    bool AddDays(double value) override;
    bool AddHours(double value) override;
    bool AddMinutes(double value) override;
    bool AddSeconds(double value) override;
    bool AddTicks(Torvo::int64 delta) override;
    bool SubtractTicks(Torvo::int64 delta) override;
    Torvo::zuTimeSpan* Duration() const override;
    bool ToString(Torvo::wchar16* out, Torvo::uint64 outSize, const Torvo::wchar16* pattern, bool dot) const override;
    bool ToLiteral(Torvo::int32* days, Torvo::int64* time) const override;

private:
    Torvo::int64 ticks;
};
