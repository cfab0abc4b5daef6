// Times of day, with a resolution of 100 nanoseconds, and how times are compared, written and read.
//
// A zuTime lies between 00:00:00.0000000 and 23:59:59.9999999. It knows nothing of dates and of time zones; a moment
// that has a date is a zuDateTime (<Utility/date_times.h>), a length of time a zuTimeSpan (<Utility/time_spans.h>).
// Adding to a time turns the hands of a clock: two hours after 23:00 it is 01:00, and the result tells that another day
// has begun.
//
// Words:
//
//     tick      100 nanoseconds, the unit of all three classes. A second has 10,000,000 ticks, a day 864,000,000,000.
//     fraction  the ticks within a second, 0 to 9,999,999.
//     literal   the decimal digits HHMMSSfffffff as an integer: 13:05:09.25 is 1305092500000. For tables. As text it
//               always has 13 digits.
//     picture   how a time is written: "HH:mm:ss.fff", as the platform's GetTimeFormatW takes it, and one "f" for each
//               digit of the fraction.
//
// Objects are made by the functions below. They belong to the caller, who deletes them; null is answered for what is no
// time, and when memory is short. Numbers of hours, minutes, seconds and milliseconds are cut to whole ticks towards
// zero, never rounded; one that 64 bits cannot hold, or that is not a number, counts as the lowest 64-bit value.
//
// Nothing here throws or leaves an error record. An object has no lock: several threads may read it while nobody
// changes it. Text is read and written by the locale of the calling thread and the callback of its instance
// (<Utility/locale_info.h>).
//
// Example: examples/families/times.cpp
#pragma once

#include <Utility/platform/types.h>

namespace Torvo {

class zuTimeSpan;

// The result of comparing two times, date-times, spans or dates.
enum ZU_CMP : int32 {
    ZU_CMP_INCOMPARABLE = -2,  // exactly one of them is missing
    ZU_CMP_LESS = -1,
    ZU_CMP_EQUAL = 0,  // also when both are missing
    ZU_CMP_GREATER = 1,
};

// A time of day. A call that asks changes nothing; one that changes says what it leaves when it fails.
class ZUAPI zuTime {
public:
    virtual ~zuTime() = default;

    // The parts; the milliseconds are the fraction's, cut.
    virtual int32 GetHours() const = 0;
    virtual int32 GetMinutes() const = 0;
    virtual int32 GetSeconds() const = 0;
    virtual int32 GetMilliseconds() const = 0;
    virtual int32 GetFraction() const = 0;

    // All of the time since midnight, in one unit.
    virtual int64 GetTicks() const = 0;
    virtual double GetTotalHours() const = 0;
    virtual double GetTotalMinutes() const = 0;
    virtual double GetTotalSeconds() const = 0;
    virtual double GetTotalMilliseconds() const = 0;

    // Compare(this, other).
    virtual ZU_CMP CompareTo(const zuTime* other) const = 0;

    // Turn the clock on. True if it stayed on the same day, 0:00 belonging to the day that begins; else false, and the
    // time has moved all the same. False, and the time has not moved, for a null span, a sum that 64 bits cannot hold,
    // and a positive number that becomes a negative count of ticks (because it is too large).
    virtual bool AddSpan(const zuTimeSpan* span) = 0;
    virtual bool AddHours(double hours) = 0;
    virtual bool AddMinutes(double minutes) = 0;
    virtual bool AddSeconds(double seconds) = 0;
    virtual bool AddTicks(int64 ticks) = 0;
    // Turns it back, likewise.
    virtual bool SubtractSpan(const zuTimeSpan* span) = 0;
    // The span from `other` to this time, negative if this is the earlier; a new object of the caller's, or null for a
    // null time.
    virtual zuTimeSpan* SubtractTime(const zuTime* other) const = 0;
    virtual bool SubtractTicks(int64 ticks) = 0;

    // Replace the time. False, and nothing changes, when there is no such time.
    virtual bool SetTicks(int64 ticks) = 0;
    virtual bool SetTime(int32 hours, int32 minutes, int32 seconds, int32 fraction) = 0;

    // The literal.
    virtual int64 ToLiteral() const = 0;
    // Writes the time by a picture, or by the locale's own for a null one, into `out`, `outSize` units with the
    // terminator. The hours of a picture without "tt" are those of 24. Each "f" of the written text, whatever it came
    // from, becomes a digit of the fraction, from the left; there are seven, and an eighth "f" ends the text. False,
    // with an empty text, when it does not fit or the platform refuses the picture. An `outSize` of 0 writes nothing,
    // and tells whether the platform takes the picture.
    virtual bool ToString(wchar16* out, int32 outSize, const wchar16* pattern) const = 0;

    // The first and the last time of the day, as new objects of the caller's.
    static zuTime* MinValue();
    static zuTime* MaxValue();
    // By their ticks.
    static ZU_CMP Compare(const zuTime* a, const zuTime* b);
};

// From parts. Hours from 0 to 23, minutes and seconds from 0 to 59, a fraction from 0 to 9,999,999.
ZUAPI zuTime* CreateTime(int32 hours, int32 minutes, int32 seconds);
ZUAPI zuTime* CreateTime(int32 hours, int32 minutes, int32 seconds, int32 fraction);
// A copy; null for null.
ZUAPI zuTime* CreateTime(const zuTime* other);
// From ticks since midnight.
ZUAPI zuTime* CreateTime(int64 ticks);
// From a number since midnight, which may not be negative.
ZUAPI zuTime* CreateTimeFromHours(double hours);
ZUAPI zuTime* CreateTimeFromMinutes(double minutes);
ZUAPI zuTime* CreateTimeFromSeconds(double seconds);
ZUAPI zuTime* CreateTimeFromMilliseconds(double milliseconds);
ZUAPI zuTime* CreateTimeFromLiteral(int64 literal);
// The local time of day, to the second; midnight if the clock cannot be broken down.
ZUAPI zuTime* CreateTimeFromSystemTime();

// From text: the thirteen digits of a literal and nothing else, or hours, and if the separator follows minutes, and if
// it follows again seconds, which may have a fraction behind a ".", whatever the locale. Separators and marks are those
// of the locale, or ":", "AM" and "PM" when the host's callback asks for the fixed form. Blanks may stand around each
// of them; a number that is missing is 0.
//
// The mark of morning or afternoon stands where the locale has it, before or behind the time, in capitals or not, whole
// or as its first character alone. 12 is noon after PM and without a mark, midnight after AM; PM adds 12 to any other
// hour, so that "13 pm" is none. What is made of the characters of the marks and blanks, but is no mark, is passed
// over. A mark that the locale leaves empty is never found.
//
// Null for any other text, and for one of 100 units or more.
ZUAPI zuTime* CreateTimeFromString(const wchar16* text);

// The same for a text without a mark, into numbers: set them before, because those that the text does not hold stay as
// they are. Each is written as soon as it is read, also when the text turns out to be none. False then, and where hours
// exceed 23, minutes 59, seconds are not below 60, or any is negative.
ZUAPI bool ParseTimeString(const wchar16* text, int32* hours, int32* minutes, double* seconds);

}  // namespace Torvo
