#include "ui/editors/DateTimeFields.h"

#include <algorithm>

namespace glimmet {

namespace {

constexpr int noon = 12;
constexpr int lastYear = 9999;

int numberOfDigits(int number)
{
    return static_cast<int>(QString::number(number).size());
}

int hourOfTwelve(int hour)
{
    return hour % noon == 0 ? noon : hour % noon;
}

/// The range within which a step goes round: here the month counts.
FieldRange steppingRange(const DateTimeFields &fields, DateTimeField field, const FieldRules &rules)
{
    FieldRange range = fieldRange(field, rules);
    if (field == DateTimeField::Day)
        range.highest = QDate(fields.year, fields.month, 1).daysInMonth();
    return range;
}

} // namespace

DateTimeFields fieldsOf(const WallClock::Minute &minute)
{
    return { minute.date.year(), minute.date.month(), minute.date.day(), minute.hour, minute.minute };
}

WallClock::Minute minuteOf(const DateTimeFields &fields)
{
    const int lastDay = QDate(fields.year, fields.month, 1).daysInMonth();
    return { QDate(fields.year, fields.month, std::min(fields.day, lastDay)), fields.hour, fields.minute };
}

FieldRange fieldRange(DateTimeField field, const FieldRules &rules)
{
    switch (field) {
    case DateTimeField::Year:
        return { rules.firstYear, lastYear };
    case DateTimeField::Month:
        return { 1, 12 };
    case DateTimeField::Day:
        return { 1, 31 };
    case DateTimeField::Hour:
        return rules.uses12Hours ? FieldRange{ 1, noon } : FieldRange{ 0, 23 };
    case DateTimeField::Minute:
        return { 0, 59 };
    case DateTimeField::DayPeriod:
        return { 0, 1 };
    }
    Q_UNREACHABLE();
}

int fieldValue(const DateTimeFields &fields, DateTimeField field, const FieldRules &rules)
{
    switch (field) {
    case DateTimeField::Year:
        return fields.year;
    case DateTimeField::Month:
        return fields.month;
    case DateTimeField::Day:
        return fields.day;
    case DateTimeField::Hour:
        return rules.uses12Hours ? hourOfTwelve(fields.hour) : fields.hour;
    case DateTimeField::Minute:
        return fields.minute;
    case DateTimeField::DayPeriod:
        return fields.hour / noon;
    }
    Q_UNREACHABLE();
}

DateTimeFields withField(DateTimeFields fields, DateTimeField field, int value, const FieldRules &rules)
{
    const FieldRange range = fieldRange(field, rules);
    const int taken = std::clamp(value, range.lowest, range.highest);
    switch (field) {
    case DateTimeField::Year:
        fields.year = taken;
        break;
    case DateTimeField::Month:
        fields.month = taken;
        break;
    case DateTimeField::Day:
        fields.day = taken;
        break;
    case DateTimeField::Hour:
        fields.hour = rules.uses12Hours ? taken % noon + fields.hour / noon * noon : taken;
        break;
    case DateTimeField::Minute:
        fields.minute = taken;
        break;
    case DateTimeField::DayPeriod:
        fields.hour = fields.hour % noon + taken * noon;
        break;
    }
    return fields;
}

DateTimeFields stepped(const DateTimeFields &fields, DateTimeField field, int steps, const FieldRules &rules)
{
    const FieldRange range = steppingRange(fields, field, rules);
    const int count = range.highest - range.lowest + 1;
    const int from = std::min(fieldValue(fields, field, rules), range.highest) - range.lowest;
    if (field == DateTimeField::Year)
        return withField(fields, field, range.lowest + from + steps, rules);
    const int to = ((from + steps) % count + count) % count;
    return withField(fields, field, range.lowest + to, rules);
}

std::optional<int> dayPeriodOf(const QString &text, const QStringList &names)
{
    const QString typed = text.toCaseFolded();
    if (typed.isEmpty())
        return std::nullopt;
    const bool isAm = names.value(0).toCaseFolded().startsWith(typed);
    const bool isPm = names.value(1).toCaseFolded().startsWith(typed);
    if (isAm != isPm)
        return isPm ? 1 : 0;
    if (typed == u'a' || typed == u'p')
        return typed == u'p' ? 1 : 0;
    return std::nullopt;
}

Instant momentNotBefore(Instant earliest, const DateTimeFields &fields, const UserRegion &region)
{
    const WallClock::Moments moments = WallClock::momentsOf(minuteOf(fields), region);
    if (moments.first >= earliest)
        return moments.first;
    return std::max(moments.last, earliest);
}

TypedNumber withDigit(const TypedNumber &number, int digit, int highest)
{
    const int longer = number.value * 10 + digit;
    if (longer > highest || number.length == numberOfDigits(highest))
        return { digit, 1 };
    return { longer, number.length + 1 };
}

bool isComplete(const TypedNumber &number, int highest)
{
    return number.length == numberOfDigits(highest) || number.value * 10 > highest;
}

int meantValue(const TypedNumber &number, DateTimeField field)
{
    constexpr int century = 2000;
    if (field == DateTimeField::Year && number.length <= 2)
        return century + number.value;
    return number.value;
}

} // namespace glimmet
