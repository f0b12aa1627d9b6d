#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

namespace glimmet {

/// The parts of a date and time that are entered one by one.
enum class DateTimeField { Year, Month, Day, Hour, Minute, DayPeriod };

/// One of the fields, in its place.
struct FieldPlace {
    DateTimeField field = DateTimeField::Year;
    int digits = 1; ///< at least so many, with zeros in front
    int column = 0; ///< where it stands among the others of its list, counted from the left
    QString separator; ///< what stands to its right

    friend bool operator==(const FieldPlace &, const FieldPlace &) = default;
};

/// How a locale writes dates and times by the Gregorian calendar.
struct DateTimeConventions {
    QList<FieldPlace> dateFields; ///< year, month and day, in the order in which they are read and written
    QList<FieldPlace> timeFields; ///< hour, minute and, with 12 hours, the day period, in the same way
    bool isRightToLeft = false; ///< lines begin at the right: there the date stands, and the time to its left
    bool uses12Hours = false;
    QStringList dayPeriods; ///< what AM and PM are called
    char32_t zeroDigit = U'0'; ///< the first of ten
    Qt::DayOfWeek firstDayOfWeek = Qt::Monday;
    QStringList weekdays; ///< seven short names, the first day of the week first

    friend bool operator==(const DateTimeConventions &, const DateTimeConventions &) = default;
};

/// The conventions of an ICU locale name; those of ICU's root where it does not know the locale.
DateTimeConventions dateTimeConventions(const QByteArray &locale);

/// `number` in the locale's digits, at least so many of them.
QString localizedNumber(int number, int digits, char32_t zeroDigit);

/// The value of a digit of any script; -1 where `text` is not one digit.
int digitValue(const QString &text);

} // namespace glimmet
