#pragma once

#include "platform/DateTimeConventions.h"
#include "platform/WallClock.h"

#include <optional>

namespace glimmet {

/// A date and time while it is edited field by field. The day may be one that the month does not have: the
/// month may follow. Years go up to 9999.
struct DateTimeFields {
    int year = 2001;
    int month = 1;
    int day = 1;
    int hour = 0; ///< 0 to 23
    int minute = 0;

    friend bool operator==(const DateTimeFields &, const DateTimeFields &) = default;
};

DateTimeFields fieldsOf(const WallClock::Minute &minute);
/// A day beyond the month's end gives the last one.
WallClock::Minute minuteOf(const DateTimeFields &fields);
/// The same time on the day after.
DateTimeFields withDayAfter(const DateTimeFields &fields);
bool isOfDate(DateTimeField field);

/// What the fields' numbers depend on.
struct FieldRules {
    bool uses12Hours = false;
    int firstYear = 1;
};

/// What numbers a field takes. Of 12 hours midnight and noon are 12; the day period is 0 or 1.
struct FieldRange {
    int lowest = 0;
    int highest = 0;

    friend bool operator==(const FieldRange &, const FieldRange &) = default;
};

FieldRange fieldRange(DateTimeField field, const FieldRules &rules);
int fieldValue(const DateTimeFields &fields, DateTimeField field, const FieldRules &rules);
/// With the field at `value`, or at the nearest number that it takes.
DateTimeFields withField(DateTimeFields fields, DateTimeField field, int value, const FieldRules &rules);
/// With the field `steps` further, round its end; years have none. The other fields stay.
DateTimeFields stepped(const DateTimeFields &fields, DateTimeField field, int steps, const FieldRules &rules);

/// Which day period typed letters mean: the one whose name begins so, be it behind what both names begin
/// with, or "am" and "pm" as far as typed. Only letters count. None where it could be either or neither.
std::optional<int> dayPeriodOf(const QString &letters, const QStringList &names);

/// When the clock shows the fields, `earliest` at the earliest: where it shows them twice, the first time
/// that is not before.
Instant momentNotBefore(Instant earliest, const DateTimeFields &fields, const UserRegion &region);

/// A number while it is typed.
struct TypedNumber {
    int value = 0;
    int length = 0; ///< digits typed so far

    friend bool operator==(const TypedNumber &, const TypedNumber &) = default;
};

/// Whether one more digit keeps it at `highest` or below, and as short.
bool takesDigit(const TypedNumber &number, int digit, int highest);
TypedNumber withDigit(const TypedNumber &number, int digit);
/// Whether no further digit can follow.
bool isComplete(const TypedNumber &number, int highest);
/// The year that was meant; none for three digits. See `DateTimeInput`.
std::optional<int> meantYear(const TypedNumber &number, int firstYear);
/// Whether the field takes what was meant by the number.
bool takesNumber(DateTimeField field, const TypedNumber &number, const FieldRules &rules);
/// With the field at what was meant by the number, or at the nearest that it takes.
DateTimeFields withTypedNumber(
    DateTimeFields fields, DateTimeField field, const TypedNumber &number, const FieldRules &rules);

} // namespace glimmet
