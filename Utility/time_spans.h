// Lengths of time, with a sign and a resolution of 100 nanoseconds.
//
// A zuTimeSpan is what lies between two times or date-times (<Utility/times.h>, <Utility/date_times.h>), and what can
// be added to one. It holds any 64-bit number of ticks, some 29,000 years to either side.
//
// The parts of a span are cut towards zero, so that all parts of a negative span are negative or 0: an hour and a half
// back is -1 hour and -30 minutes.
//
//     literal   days as a 32-bit integer, and the time within the day by the digits HHMMSSfffffff as a 64-bit integer,
//               both with the span's sign: 3 days 12 hours are 3 and 1200000000000. As text the sign, the days, and
//               the thirteen digits: "31200000000000".
//     display   "-3.12:00:00.0000000": the sign, the days, a point, the time.
//
// Objects are made by the functions below. They belong to the caller, who deletes them; null is answered for a span
// that 64 bits cannot hold, and when memory is short. Numbers of days, hours, minutes, seconds and milliseconds are cut
// to whole ticks towards zero. One that 64 bits cannot hold, or that is not a number, counts as the lowest span; where
// the number was positive the call fails instead.
//
// Nothing here leaves an error record, and nothing throws but SetParts. An object has no lock: several threads may read
// it while nobody changes it.
//
// Example: examples/families/times.cpp
#pragma once

#include <Utility/platform/types.h>
#include <Utility/times.h>

namespace Torvo {

// A span. A call that asks changes nothing; one that changes says what it leaves when it fails.
class ZUAPI zuTimeSpan {
public:
    virtual ~zuTimeSpan() = default;

    // The parts; the milliseconds are the fraction's, cut.
    virtual int32 GetDays() const = 0;
    virtual int32 GetHours() const = 0;
    virtual int32 GetMinutes() const = 0;
    virtual int32 GetSeconds() const = 0;
    virtual int32 GetMilliseconds() const = 0;
    virtual int32 GetFraction() const = 0;

    // All of the span in one unit.
    virtual int64 GetTicks() const = 0;
    virtual double GetTotalDays() const = 0;
    virtual double GetTotalHours() const = 0;
    virtual double GetTotalMinutes() const = 0;
    virtual double GetTotalSeconds() const = 0;
    virtual double GetTotalMilliseconds() const = 0;

    // Replaces the span by the sum of its parts, as CreateTimeSpan does. True. A sum that is too large throws, the only
    // operation here that does: an enumeration of the library's own, to be caught by `catch (...)`. The span is then
    // what it was.
    virtual bool SetParts(int32 days, int32 hours, int32 minutes, int32 seconds, int32 fraction) = 0;
    // True.
    virtual bool SetTicks(int64 ticks) = 0;

    // Compare(this, other).
    virtual ZU_CMP CompareTo(const zuTimeSpan* other) const = 0;

    // Make the span longer or shorter. False, and nothing changes, for a null span and for a result that 64 bits cannot
    // hold.
    virtual bool AddSpan(const zuTimeSpan* span) = 0;
    virtual bool SubtractSpan(const zuTimeSpan* span) = 0;
    virtual bool AddDays(double days) = 0;
    virtual bool AddHours(double hours) = 0;
    virtual bool AddMinutes(double minutes) = 0;
    virtual bool AddSeconds(double seconds) = 0;
    virtual bool AddTicks(int64 ticks) = 0;
    // For a span that is not negative only, or a number that is not positive. From a negative span a positive number is
    // refused, false, as long as the result would be above the lowest span; one that leads just there passes, and a
    // larger one wraps around, true. Callers rely on that; SubtractSpan has no such quirk.
    virtual bool SubtractTicks(int64 ticks) = 0;

    // The span without its sign, as a new object of the caller's. The lowest span stays what it is.
    virtual zuTimeSpan* Duration() const = 0;

    // Writes the display form into `out`, `outSize` units with the terminator, the point only if `dot`. The time is
    // written by the picture, or by "hh:mm:ss.fffffff" for a null one, always in 24 hours and without a mark; what
    // separates a mark in the picture from its neighbours goes with it where the platform does as documented, and else
    // only what stands before it. "f" is as in zuTime::ToString. False when the time has more than 31 units, or the
    // platform refuses the picture, or when all of it does not fit; `out` is then left alone, except when only the
    // point did not fit: then it holds the beginning.
    virtual bool ToString(wchar16* out, uint64 outSize, const wchar16* pattern, bool dot) const = 0;
    // Stores the literal. True; false, and nothing is stored, if either pointer is null.
    virtual bool ToLiteral(int32* days, int64* time) const = 0;

    // By their ticks.
    static ZU_CMP Compare(const zuTimeSpan* a, const zuTimeSpan* b);
};

// The sum of parts of any size and sign: 90 minutes and -1 hour are half an hour. Null where a product or a sum does
// not fit 64 bits, as far as its sign shows it.
ZUAPI zuTimeSpan* CreateTimeSpan(int32 hours, int32 minutes, int32 seconds);
ZUAPI zuTimeSpan* CreateTimeSpan(int32 days, int32 hours, int32 minutes, int32 seconds);
ZUAPI zuTimeSpan* CreateTimeSpan(int32 days, int32 hours, int32 minutes, int32 seconds, int32 fraction);
// A copy; null for null.
ZUAPI zuTimeSpan* CreateTimeSpan(const zuTimeSpan* other);
ZUAPI zuTimeSpan* CreateTimeSpan(int64 ticks);
ZUAPI zuTimeSpan* CreateTimeSpanFromDays(double days);
ZUAPI zuTimeSpan* CreateTimeSpanFromHours(double hours);
ZUAPI zuTimeSpan* CreateTimeSpanFromMinutes(double minutes);
ZUAPI zuTimeSpan* CreateTimeSpanFromSeconds(double seconds);
ZUAPI zuTimeSpan* CreateTimeSpanFromMilliseconds(double milliseconds);
// From a literal, whose parts are not checked: 99 minutes are 99 minutes.
ZUAPI zuTimeSpan* CreateTimeSpanFromLiteral(int32 days, int64 time);

// From text: a literal and nothing else, of 14 digits or more, or days, points that may be missing, and a time as
// ParseTimeString reads it (<Utility/times.h>). Only the first 255 units are looked at. Null for any other text.
//
// The first number is the days, also without a point: "12:30:00" is 12 days and 30 minutes, because its time begins
// with an hour that is missing. The sign is that of the days: "-0.01:00:00" is an hour forward.
ZUAPI zuTimeSpan* CreateTimeSpanFromString(const wchar16* text);

}  // namespace Torvo
