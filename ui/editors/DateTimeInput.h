#pragma once

#include "ui/editors/DateTimeFields.h"

#include <optional>

namespace glimmet {

/// Digits that were typed one after the other, be it through several fields.
struct DigitRun {
    int row = 0; ///< the field in which they begin
    DateTimeFields before; ///< the fields as they were then
    TypedNumber number; ///< of five digits at most

    friend bool operator==(const DigitRun &, const DigitRun &) = default;
};

/// Typing a date and time as people write it, through the fields in the order in which they are read:
/// "1.2.2027 9:15", "1/2/27, 1:30 PM" and "01022027" alike.
///
/// - A number ends where no digit can follow, and by a digit that cannot: that one begins the next field. The
///   last field begins anew with it.
/// - A separator ends the number that is being typed and goes on. Where none is being typed the field before
///   has ended already ("12." or ", ") and it changes nothing. Behind the last field it ends all: seconds and
///   the like are taken by no field.
/// - A letter of AM and PM, or of the locale's names for them, sets the day period from any field of the
///   time, also where the locale has 24 hours: "1:30 pm" is 13:30 there. A digit typed in a day period that
///   stands before its hour begins the hour.
/// - An hour that only AM or PM follows is a full one: "9pm" is 21:00.
/// - A colon behind one or two digits of a year says that they are the hour and the year was left out, as in
///   "24.12. 18:00": it is the next one with such a day that is not past.
/// - A number of 24 hours is also taken by a field of 12: 0 is midnight, and "13:" is 1 PM, although its 3
///   was in the minutes before the colon came.
/// - Four digits and "-" or "/" at the beginning are a year of this century wherever the locale has the year:
///   the month and the day follow then, as in "2027-02-01".
/// - A year of two digits is in the century of the first year that can be, one of a single digit in its
///   decade, unless that were more than half a century or decade ago: then in the next. Years that are past
///   give the first one. Three digits are no year; the field stays as it was.
struct DateTimeInput {
    DateTimeFields fields;
    int row = -1; ///< the field with the keyboard, in the order of reading; -1 for none
    TypedNumber number; ///< what is being typed there; not yet in `fields`
    QString letters; ///< of a day period's name, as far as typed
    std::optional<DigitRun> run; ///< the digits typed last
    bool isYearFirst = false; ///< the date is typed as year, month, day
    bool isAfterHour = false; ///< an hour was typed just before, and no minute yet
    bool isFilled = false; ///< the last field's number is complete
    bool isOver = false; ///< a separator stands behind it

    friend bool operator==(const DateTimeInput &, const DateTimeInput &) = default;
};

struct InputRules {
    QList<DateTimeField> order; ///< as they are read
    FieldRules fields;
    QStringList dayPeriods;
    QString separators; ///< the locale's own ones, which may be letters
    QDate today; ///< null: not known
};

/// With one more character typed in the field that has the keyboard; none where it means nothing there.
std::optional<DateTimeInput> withTyped(
    const DateTimeInput &input, const QString &character, const InputRules &rules);
/// With what was typed so far in `fields`, and nothing being typed.
DateTimeInput finished(const DateTimeInput &input, const InputRules &rules);

} // namespace glimmet
