// Dates, times, spans and date-times.
#include <Utility/date_strings.h>
#include <Utility/date_times.h>
#include <Utility/dates.h>
#include <Utility/errors.h>
#include <Utility/sql_dates.h>
#include <Utility/time_spans.h>
#include <Utility/times.h>
#include <faults/operations.h>

#include <memory>

namespace Torvo::test {

namespace datetime_operations {
namespace {

constexpr zuDATE LeapDay = {2024, 2, 29};

// Rows of calls that make an object.
#define TORVO_MAKES(name, call)                                           \
    {                                                                     \
        name, [](Trial& trial) { TryToMake(trial, [] { return call; }); } \
    }

zuTime* Noon() {
    return CreateTime(12, 0, 0);
}
zuDateTime* LeapNoon() {
    return CreateDateTime(2024, 2, 29, 12, 0, 0);
}
zuTimeSpan* OneHour() {
    return CreateTimeSpan(1, 0, 0);
}

// Tries a call on an object that gives another one.
template <typename Object, typename Make>
void TryOn(Trial& trial, Object* object, Make make) {
    const std::unique_ptr<Object> owned(object);
    TryToMake(trial, [&] { return make(owned.get()); });
}

Operations DateOperations() {
    return {
        {"NullDate",
         [] {
             const zuDATE none = {0, 0, 0};
             return NullDate(&none);
         }},
        {"SetNullDate",
         [] {
             zuDATE date = LeapDay;
             SetNullDate(&date);
             return date.year == 0;
         }},
        {"IsValidDate", [] { return IsValidDate(&LeapDay); }},
        {"SetDate",
         [] {
             zuDATE date;
             return SetDate(2024, 2, 29, &date);
         }},
        {"SystemDate",
         [] {
             zuDATE date = {0, 0, 0};
             return SystemDate(&date) != nullptr && date.year > 2000;
         }},
        {"MDY2Days", [] { return MDY2Days(&LeapDay) > 0; }},
        {"Days2MDY",
         [] {
             zuDATE date;
             return Days2MDY(MDY2Days(&LeapDay), &date) && date.day == 29;
         }},
        {"DateAdd",
         [] {
             zuDATE date = LeapDay;
             return DateAdd(1, &date) != nullptr && date.month == 3;
         }},
        {"DateSubtract",
         [] {
             zuDATE date = LeapDay;
             return DateSubtract(1, &date) != nullptr && date.day == 28;
         }},
        {"DateDiff", [] { return DateDiff(&LeapDay, &LeapDay) == 0; }},
        {"DateCmp", [] { return DateCmp(&LeapDay, &LeapDay) == 0; }},
        {"DayOfWeek", [] { return DayOfWeek(MDY2Days(&LeapDay)) >= 0; }},
        {"DateToLiteral", [] { return DateToLiteral(&LeapDay) == 20240229; }},
        {"LiteralToDate",
         [] {
             zuDATE date;
             return LiteralToDate(20240229, &date) && date.day == 29;
         }},
        {"GetDateOrder", [] { return GetDateOrder() >= 0; }},
        {"GetDateDelim", [] { return GetDateDelim() != 0; }},
        {"Str2Date",
         [] {
             zuDATE date;
             return Str2Date(ZUTEXT("20240229"), &date) != nullptr && date.day == 29;
         }},
        {"Str2DateEx",
         [] {
             zuDATE date;
             wchar16* end = nullptr;
             return Str2DateEx(ZUTEXT("20240229"), &date, &end) != nullptr && date.day == 29;
         }},
        {"MakeDateString",
         [] {
             TextBuffer text;
             zuDATE date = LeapDay;
             MakeDateString(text.units, 40, &date, DATEORDER_YMD, '-');
             return text.units[0] == '2';
         }},
        {"MakeDateStringEx",
         [] {
             TextBuffer text;
             zuDATE date = LeapDay;
             return MakeDateStringEx(text.units, 40, &date, DATEORDER_YMD, ZUTEXT("-"), ZUTEXT("-"));
         }},
        {"FormatDateString",
         [](Trial& trial) {
             TextBuffer text;
             trial.Try([&] { return FormatDateString(text.units, 40, LeapDay, ZUTEXT("dd.MM.yyyy")); },
                       [&] { return text.Is(ZUTEXT("")); });
         }},
        {"FormatDateString, by the locale's picture",
         [](Trial& trial) {
             TextBuffer text;
             trial.Try([&] { return FormatDateString(text.units, 40, LeapDay, int16{31}); },
                       [&] { return text.Is(ZUTEXT("")); });
         }},
        {"zuSQLDateToString",
         [](Trial& trial) {
             TextBuffer text(ZUTEXT("as it was"));
             trial.Try([&] { return zuSQLDateToString(LeapDay, ZUTEXT("dd-mm-yyyy 'and a literal'"), text.units, 80); },
                       [&] { return text.Is(ZUTEXT("as it was")); });
         }},
        {"zuSQLStringToDate",
         [](Trial& trial) {
             zuDATE date = {77, 7, 7};
             trial.Try([&] { return zuSQLStringToDate(ZUTEXT("29-02-2024"), ZUTEXT("dd-mm-yyyy"), &date); },
                       [&] { return date.year == 77; });
         }},
        {"zuSQLStringToDate, of what is no date",
         [](Trial& trial) {
             trial.Try([] {
                 zuDATE date = LeapDay;
                 ClearErrors();
                 EXPECT_FALSE(zuSQLStringToDate(ZUTEXT("none"), ZUTEXT("dd-mm-yyyy"), &date));
                 return NumErrors() == 1;
             });
         }},
    };
}

Operations TimeOperations() {
    return {
        TORVO_MAKES("CreateTime", CreateTime(12, 30, 0)),
        TORVO_MAKES("CreateTime, with a fraction", CreateTime(12, 30, 0, 1)),
        TORVO_MAKES("CreateTime, of ticks", CreateTime(int64{0})),
        {"CreateTime, of another",
         [](Trial& trial) { TryOn(trial, Noon(), [](const zuTime* other) { return CreateTime(other); }); }},
        TORVO_MAKES("CreateTimeFromHours", CreateTimeFromHours(1.5)),
        TORVO_MAKES("CreateTimeFromMinutes", CreateTimeFromMinutes(1.5)),
        TORVO_MAKES("CreateTimeFromSeconds", CreateTimeFromSeconds(1.5)),
        TORVO_MAKES("CreateTimeFromMilliseconds", CreateTimeFromMilliseconds(1.5)),
        TORVO_MAKES("CreateTimeFromLiteral", CreateTimeFromLiteral(0)),
        TORVO_MAKES("CreateTimeFromSystemTime", CreateTimeFromSystemTime()),
        TORVO_MAKES("CreateTimeFromString", CreateTimeFromString(ZUTEXT("12:30"))),
        TORVO_MAKES("zuTime::MinValue", zuTime::MinValue()),
        TORVO_MAKES("zuTime::MaxValue", zuTime::MaxValue()),
        {"zuTime::Compare", [] { return zuTime::Compare(nullptr, nullptr) == ZU_CMP_EQUAL; }},
        {"ParseTimeString",
         [] {
             int32 hours = 0;
             int32 minutes = 0;
             double seconds = 0;
             return ParseTimeString(ZUTEXT("12:30"), &hours, &minutes, &seconds) && hours == 12;
         }},
        {"zuTime::SubtractTime",
         [](Trial& trial) { TryOn(trial, Noon(), [](zuTime* time) { return time->SubtractTime(time); }); }},
        {"zuTime::ToString",
         [] {
             static const std::unique_ptr<zuTime> time(Noon());
             TextBuffer text;
             return time->ToString(text.units, 100, ZUTEXT("HH:mm:ss")) && text.units[0] == '1';
         }},
        TORVO_MAKES("CreateTimeSpan", CreateTimeSpan(1, 0, 0)),
        TORVO_MAKES("CreateTimeSpan, with days", CreateTimeSpan(1, 1, 0, 0)),
        TORVO_MAKES("CreateTimeSpan, with a fraction", CreateTimeSpan(1, 1, 0, 0, 1)),
        TORVO_MAKES("CreateTimeSpan, of ticks", CreateTimeSpan(int64{0})),
        {"CreateTimeSpan, of another",
         [](Trial& trial) { TryOn(trial, OneHour(), [](const zuTimeSpan* other) { return CreateTimeSpan(other); }); }},
        TORVO_MAKES("CreateTimeSpanFromDays", CreateTimeSpanFromDays(1.5)),
        TORVO_MAKES("CreateTimeSpanFromHours", CreateTimeSpanFromHours(1.5)),
        TORVO_MAKES("CreateTimeSpanFromMinutes", CreateTimeSpanFromMinutes(1.5)),
        TORVO_MAKES("CreateTimeSpanFromSeconds", CreateTimeSpanFromSeconds(1.5)),
        TORVO_MAKES("CreateTimeSpanFromMilliseconds", CreateTimeSpanFromMilliseconds(1.5)),
        TORVO_MAKES("CreateTimeSpanFromLiteral", CreateTimeSpanFromLiteral(1, 0)),
        TORVO_MAKES("CreateTimeSpanFromString", CreateTimeSpanFromString(ZUTEXT("1.02:03:04"))),
        {"zuTimeSpan::Compare", [] { return zuTimeSpan::Compare(nullptr, nullptr) == ZU_CMP_EQUAL; }},
        {"zuTimeSpan::Duration",
         [](Trial& trial) { TryOn(trial, OneHour(), [](zuTimeSpan* span) { return span->Duration(); }); }},
        {"zuTimeSpan::ToString",
         [] {
             static const std::unique_ptr<zuTimeSpan> span(OneHour());
             TextBuffer text;
             return span->ToString(text.units, 100, ZUTEXT("HH:mm:ss"), true) && text.units[0] != 0;
         }},
    };
}

Operations DateTimeMakers() {
    return {
        TORVO_MAKES("CreateDateTime", CreateDateTime(2024, 2, 29)),
        TORVO_MAKES("CreateDateTime, with a time", CreateDateTime(2024, 2, 29, 12, 0, 0)),
        TORVO_MAKES("CreateDateTime, with a fraction", CreateDateTime(2024, 2, 29, 12, 0, 0, 1)),
        TORVO_MAKES("CreateDateTime, of ticks", CreateDateTime(int64{0})),
        {"CreateDateTime, of a date",
         [](Trial& trial) {
             TryToMake(trial, [] {
                 zuDATE date = LeapDay;
                 return CreateDateTime(&date);
             });
         }},
        {"CreateDateTime, of a date and a time",
         [](Trial& trial) {
             TryOn(trial, Noon(), [](zuTime* time) {
                 zuDATE date = LeapDay;
                 return CreateDateTime(&date, time);
             });
         }},
        {"CreateDateTime, of another",
         [](Trial& trial) { TryOn(trial, LeapNoon(), [](const zuDateTime* other) { return CreateDateTime(other); }); }},
        TORVO_MAKES("CreateDateTimeFromDays", CreateDateTimeFromDays(1.5)),
        TORVO_MAKES("CreateDateTimeFromHours", CreateDateTimeFromHours(1.5)),
        TORVO_MAKES("CreateDateTimeFromMinutes", CreateDateTimeFromMinutes(1.5)),
        TORVO_MAKES("CreateDateTimeFromSeconds", CreateDateTimeFromSeconds(1.5)),
        TORVO_MAKES("CreateDateTimeFromMilliseconds", CreateDateTimeFromMilliseconds(1.5)),
        TORVO_MAKES("CreateDateTimeFromLiteral", CreateDateTimeFromLiteral(20240229, 0)),
        TORVO_MAKES("CreateDateTimeFromString", CreateDateTimeFromString(ZUTEXT("20240229"))),
        TORVO_MAKES("CreateDateTimeFromSystemTime", CreateDateTimeFromSystemTime()),
        TORVO_MAKES("zuDateTime::MinValue", zuDateTime::MinValue()),
        TORVO_MAKES("zuDateTime::MaxValue", zuDateTime::MaxValue()),
        {"zuDateTime::Compare", [] { return zuDateTime::Compare(nullptr, nullptr) == ZU_CMP_EQUAL; }},
        {"zuDateTime::SubtractDateTime",
         [](Trial& trial) {
             TryOn(trial, LeapNoon(), [](zuDateTime* value) { return value->SubtractDateTime(value); });
         }},
        {"zuDateTime::ToString",
         [] {
             static const std::unique_ptr<zuDateTime> value(LeapNoon());
             TextBuffer text;
             return value->ToString(text.units, 100, DATEORDER_YMD, ZUTEXT("-"), ZUTEXT("-"), ZUTEXT("HH:mm"), true) &&
                    text.units[0] == '2';
         }},
    };
}

#undef TORVO_MAKES

}  // namespace
}  // namespace datetime_operations

Operations DateTimeOperations() {
    using namespace datetime_operations;
    Operations all = DateOperations();
    for (const Operation& operation : TimeOperations()) all.push_back(operation);
    for (const Operation& operation : DateTimeMakers()) all.push_back(operation);
    return all;
}

}  // namespace Torvo::test
