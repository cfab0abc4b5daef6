// Points in time: a date and a time of day, with a resolution of 100 nanoseconds.
//
// A zuDateTime lies between the start of 1 January 0001 and the end of 31 December 9999, in the calendar of
// <Utility/dates.h>. It has no time zone. It keeps its ticks since the start of the calendar (a tick is 100
// nanoseconds, see <Utility/times.h>) and beside them the same moment as a date and a time of day, so that reading
// either is free. Unlike a zuTime it never wraps: what would leave the calendar fails.
//
//     literal   the date's literal, YYYYMMDD, and the time's, HHMMSSfffffff. As text the digits of both, 21 in all:
//               "202402291305092500000" is 29 February 2024, 13:05:09.25.
//
// A value without a time part: a literal whose time is negative gives an object that is midnight by its ticks and has
// no time. It is not meant to be asked for hours to fractions, for its literal or for its text. They are answered all
// the same: 0, a time literal of -1, the date alone. Setting it or adding to it gives it a time part.
//
// Objects are made by the functions below. They belong to the caller, who deletes them; null is answered for what is no
// moment of the calendar, and when memory is short. Numbers of days, hours, minutes and seconds are cut to whole ticks
// towards zero, never rounded.
//
// Nothing here throws. Nothing leaves an error record, except that the literal of no date leaves that of LiteralToDate
// and a date in text what Str2DateEx may leave. An object has no lock: several threads may read it while nobody changes
// it.
//
// Year 0 passes as a date, and so does a year above 9999 in a literal. Their ticks lie outside the calendar: such
// objects cannot be copied, only what brings them back into the calendar can be added, and their day of the week means
// nothing. January and February of year 0 have the ticks of days in year 4 instead, and become those when copied or
// added to.
//
// Example: examples/families/times.cpp
#pragma once

#include <Utility/dates.h>
#include <Utility/platform/types.h>
#include <Utility/time_spans.h>
#include <Utility/times.h>

namespace Torvo {

// A moment. A call that asks changes nothing; one that changes says what it leaves when it fails.
class ZUAPI zuDateTime {
public:
    virtual ~zuDateTime() = default;

    // The parts; the milliseconds are the fraction's, cut.
    virtual int32 GetYear() const = 0;
    virtual int32 GetMonth() const = 0;
    virtual int32 GetDay() const = 0;
    virtual int32 GetHours() const = 0;
    virtual int32 GetMinutes() const = 0;
    virtual int32 GetSeconds() const = 0;
    virtual int32 GetMilliseconds() const = 0;
    virtual int32 GetFraction() const = 0;

    // All of the time since the start of the calendar, in one unit.
    virtual int64 GetTicks() const = 0;
    virtual double GetTotalDays() const = 0;
    virtual double GetTotalHours() const = 0;
    virtual double GetTotalMinutes() const = 0;
    virtual double GetTotalSeconds() const = 0;
    virtual double GetTotalMilliseconds() const = 0;

    // The object's own date and time part, null for a value without one. They end with the object. A change of them
    // does not reach the ticks: use SetDateTime.
    virtual zuDATE* GetDate() = 0;
    virtual zuTime* GetTime() = 0;
    // 1 for Sunday to 7 for Saturday.
    virtual int32 GetDayOfWeek() const = 0;

    // Replaces the moment. False when there is no such date: the date part is then null, while ticks and time part are
    // what they were; or when there is no such time: the date part is then the new one. In either case the object
    // contradicts itself until it is set again.
    virtual bool SetDateTime(int16 year, int8 month, int8 day, int32 hours, int32 minutes, int32 seconds,
                             int32 fraction) = 0;
    // False, and nothing changes, for ticks outside the calendar.
    virtual bool SetTicks(int64 ticks) = 0;

    // Move the moment on. False, and nothing changes, when that would leave the calendar, for a null span, and for a
    // number that 64 bits of ticks cannot hold.
    virtual bool AddSpan(const zuTimeSpan* span) = 0;
    virtual bool AddDays(double days) = 0;
    virtual bool AddHours(double hours) = 0;
    virtual bool AddMinutes(double minutes) = 0;
    virtual bool AddSeconds(double seconds) = 0;
    virtual bool AddTicks(int64 ticks) = 0;
    // Moves it back, likewise.
    virtual bool SubtractSpan(const zuTimeSpan* span) = 0;
    // The span from `other` to this moment, negative if this is the earlier; a new object of the caller's, or null for
    // a null moment and for a span that 64 bits cannot hold.
    virtual zuTimeSpan* SubtractDateTime(const zuDateTime* other) const = 0;
    virtual bool SubtractTicks(int64 ticks) = 0;

    // Stores the literal. True; false, and nothing is stored, if either pointer is null.
    virtual bool ToLiteral(int32* date, int64* time) const = 0;

    // Writes the date as MakeDateStringEx does (<Utility/date_strings.h>), then a space if `blank`, then the time by
    // the picture as zuTime::ToString does, all into `out`, `outSize` units with the terminator. A text that fills
    // `out` is cut there, before or behind the space, and that is a success. False for an order that is none, and then
    // nothing is written; and when the time does not fit or its picture is refused, and then the text ends before it.
    virtual bool ToString(wchar16* out, uint64 outSize, int16 order, const wchar16* delimiter1,
                          const wchar16* delimiter2, const wchar16* timePattern, bool blank) const = 0;

    // The first and the last moment of the calendar, as new objects of the caller's.
    static zuDateTime* MinValue();
    static zuDateTime* MaxValue();
    // By their ticks.
    static ZU_CMP Compare(const zuDateTime* a, const zuDateTime* b);
};

// From parts, midnight where none are given. The date must be one for SetDate, which sees the low 16 bits of the year
// and the low 8 of month and day; the time one for CreateTime.
ZUAPI zuDateTime* CreateDateTime(int32 year, int32 month, int32 day);
ZUAPI zuDateTime* CreateDateTime(int32 year, int32 month, int32 day, int32 hours, int32 minutes, int32 seconds);
ZUAPI zuDateTime* CreateDateTime(int32 year, int32 month, int32 day, int32 hours, int32 minutes, int32 seconds,
                                 int32 fraction);
// From a valid date, and the ticks of a time, midnight if it is null. Both are copied.
ZUAPI zuDateTime* CreateDateTime(zuDATE* date);
ZUAPI zuDateTime* CreateDateTime(zuDATE* date, zuTime* time);
// A copy, by ticks; null for null.
ZUAPI zuDateTime* CreateDateTime(const zuDateTime* other);
// From ticks since the start of the calendar.
ZUAPI zuDateTime* CreateDateTime(int64 ticks);
// From a number since the start of the calendar. All are turned into seconds first (days times 86400, milliseconds by
// 1000), and the seconds into ticks.
ZUAPI zuDateTime* CreateDateTimeFromDays(double days);
ZUAPI zuDateTime* CreateDateTimeFromHours(double hours);
ZUAPI zuDateTime* CreateDateTimeFromMinutes(double minutes);
ZUAPI zuDateTime* CreateDateTimeFromSeconds(double seconds);
ZUAPI zuDateTime* CreateDateTimeFromMilliseconds(double milliseconds);
// From a literal. The date must be above 0 and one for LiteralToDate. A negative time means a value without a time
// part; any other must be one for CreateTimeFromLiteral.
ZUAPI zuDateTime* CreateDateTimeFromLiteral(int32 date, int64 time);

// From text: the 21 digits of a literal and nothing else, or a date as Str2DateEx reads it
// (<Utility/date_strings.h>) with a time behind it as CreateTimeFromString reads it. A text behind the date that is no
// time is passed over, and the result is midnight. A date of two fields takes the character behind it along, so that a
// time may follow it only behind a further one. Null when there is no date.
ZUAPI zuDateTime* CreateDateTimeFromString(const wchar16* text);
// The local date and time, to the second; null if the clock cannot be broken down.
ZUAPI zuDateTime* CreateDateTimeFromSystemTime();

}  // namespace Torvo
