#pragma once

#include "ui/editors/DateTimeFields.h"
#include "ui/editors/DateWord.h"

#include <optional>

namespace glimmet {

/// Digits that were typed one after the other, be it through several fields, and what there was before them.
struct DigitRun {
    int row = 0; ///< the field in which they begin
    DateTimeFields before;
    QList<DateTimeField> movedBefore;
    QList<DateTimeField> dateOrder;
    TypedNumber number; ///< of five digits at most

    friend bool operator==(const DigitRun &, const DigitRun &) = default;
};

/// Typing a date and time as people write it, through the fields in the order in which they are read:
/// "1.2.2027 9:15", "1/2/27, 1:30 PM", "24 Dec 2027" and "01022027" alike.
///
/// - A number ends where no digit can follow, and by a digit that cannot: that one begins the next field. The
///   last field begins anew with it.
/// - A separator ends the number that is being typed and goes on. Where none is being typed the field before
///   has ended already ("12." or ", ") and it changes nothing. Behind the last field it ends all: seconds and
///   the like are taken by no field.
/// - What cannot be becomes the nearest that can, as soon as its field is left, and `moved` tells of it:
///   "9:60" is 9:59 and a 13th month December, a past year is this one. The day is held against its month
///   when the last field of the date is left: "31.2.2027" is the 28th. Two digits that a separator or word
///   follows are one number, also where the second went on to the next field: "25:" is 23:00 and not 2:05.
/// - 24:00 is the midnight that ends the day (ISO 8601): the date goes on by one.
/// - A letter in a field of the date begins a month's name, in the locale's language or in English, whole or
///   as far as no other month begins so. The day stands before it or, where nothing does, behind it; the year
///   comes last, or stood first. Weekdays and words such as "de" and "th" change nothing, and letters that no
///   word begins with are not taken.
/// - A letter of AM and PM, or of the locale's names for them, sets the day period from any field of the
///   time, also where the locale has 24 hours: "1:30 pm" is 13:30 there. A digit typed in a day period that
///   stands before its hour begins the hour.
/// - A word that the locale writes beside an hour follows it, as in "9 Uhr" or "18h30".
/// - An hour that only AM, PM or such a word follows is a full one: "9pm" is 21:00.
/// - A colon, AM, PM or such a word behind one or two digits of a year says that they are the hour and the
/// year was left
///   out, as in "24.12. 18:00": it is the next one with such a day that is not past. So says a full stop
///   where that year would be past, or has one digit: "24.12. 18.00".
/// - A number of 24 hours is also taken by a field of 12: 0 is midnight, and "13:" is 1 PM, although its 3
///   was in the minutes before the colon came.
/// - Four digits and a separator at the beginning are a year of this century wherever the locale has the
///   year: the month and the day follow then, as in "2027-02-01". A past year is none before a blank: "2012 "
///   may be the 20th of December.
/// - A year of two digits is in the century of the first year that can be, one of a single digit in its
///   decade, unless that were more than half a century or decade ago: then in the next. Three digits are no
///   year; the field stays as it was.
struct DateTimeInput {
    DateTimeFields fields;
    int row = -1; ///< the field with the keyboard, in the order of reading; -1 for none
    TypedNumber number; ///< what is being typed there or at `wordRow`; not yet in `fields`
    QString letters; ///< of a word or a day period's name, as far as typed; a word is not yet in `fields`
    int wordRow = -1; ///< where the keyboard was before the word that is being typed; -1 for none
    std::optional<DigitRun> run; ///< the digits typed last
    std::optional<DigitRun> ended; ///< those before the separators typed last
    QList<DateTimeField> dateOrder; ///< as the date is being typed; empty for the locale's order
    QList<DateTimeField> moved; ///< the fields that have not the value that was typed, since it cannot be
    bool isAfterHour = false; ///< an hour was typed just before, and no minute yet
    bool isMinuteFull = false; ///< its one digit takes no second one, and was typed just before
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
    QList<DateWords> languages; ///< of the words, the locale's first

    int rowOf(DateTimeField field) const { return static_cast<int>(order.indexOf(field)); }
};

/// With one more character typed in the field that has the keyboard; none where it means nothing there.
std::optional<DateTimeInput> withTyped(
    const DateTimeInput &input, const QString &character, const InputRules &rules);
/// With what was typed so far in `fields`, and nothing being typed.
DateTimeInput finished(const DateTimeInput &input, const InputRules &rules);
/// With the day in its month.
DateTimeInput withDayOfMonth(DateTimeInput input);
/// `finished` at the next field; in the last one the keyboard stays.
DateTimeInput movedOn(const DateTimeInput &input, const InputRules &rules);

} // namespace glimmet
