#include "ui/editors/DateTimeFields.h"

#include "ui/editors/DateWord.h"

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

qsizetype sharedBeginning(const QString &one, const QString &other)
{
    const auto ends = std::mismatch(one.cbegin(), one.cend(), other.cbegin(), other.cend());
    return ends.first - one.cbegin();
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

DateTimeFields withDayAfter(const DateTimeFields &fields)
{
    WallClock::Minute minute = minuteOf(fields);
    if (minute.date < QDate(lastYear, 12, 31))
        minute.date = minute.date.addDays(1);
    return fieldsOf(minute);
}

bool isOfDate(DateTimeField field)
{
    return field == DateTimeField::Year || field == DateTimeField::Month || field == DateTimeField::Day;
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

std::optional<int> dayPeriodOf(const QString &letters, const QStringList &names)
{
    const QString typed = foldedLetters(letters);
    if (typed.isEmpty())
        return std::nullopt;
    const QString am = foldedLetters(names.value(0));
    const QString pm = foldedLetters(names.value(1));
    const qsizetype shared = sharedBeginning(am, pm);
    const auto begins = [&](const QString &name) {
        return name.startsWith(typed) || name.mid(shared).startsWith(typed);
    };
    if (begins(am) != begins(pm))
        return begins(pm) ? 1 : 0;
    if (QStringLiteral("am").startsWith(typed))
        return 0;
    if (QStringLiteral("pm").startsWith(typed))
        return 1;
    return std::nullopt;
}

Instant momentNotBefore(Instant earliest, const DateTimeFields &fields, const UserRegion &region)
{
    const WallClock::Moments moments = WallClock::momentsOf(minuteOf(fields), region);
    if (moments.first >= earliest)
        return moments.first;
    return std::max(moments.last, earliest);
}

bool takesDigit(const TypedNumber &number, int digit, int highest)
{
    return number.length < numberOfDigits(highest) && number.value * 10 + digit <= highest;
}

TypedNumber withDigit(const TypedNumber &number, int digit)
{
    return { number.value * 10 + digit, number.length + 1 };
}

bool isComplete(const TypedNumber &number, int highest)
{
    return number.length == numberOfDigits(highest) || number.value * 10 > highest;
}

std::optional<int> meantYear(const TypedNumber &number, int firstYear)
{
    constexpr int century = 100;
    constexpr int decade = 10;
    if (number.value >= century)
        return number.length == 3 ? std::nullopt : std::optional(number.value);
    const int span = number.length == 1 ? decade : century;
    const int year = firstYear / span * span + number.value;
    return year < firstYear - span / 2 ? year + span : year;
}

bool takesNumber(DateTimeField field, const TypedNumber &number, const FieldRules &rules)
{
    const auto value =
        field == DateTimeField::Year ? meantYear(number, rules.firstYear) : std::optional(number.value);
    const FieldRange range = fieldRange(field, rules);
    const bool isMidnight = field == DateTimeField::Hour && value == 0;
    return isMidnight || (value && *value >= range.lowest && *value <= range.highest);
}

DateTimeFields withTypedNumber(
    DateTimeFields fields, DateTimeField field, const TypedNumber &number, const FieldRules &rules)
{
    if (field == DateTimeField::Year) {
        const auto year = meantYear(number, rules.firstYear);
        return year ? withField(fields, field, *year, rules) : fields;
    }
    if (field == DateTimeField::Hour && number.value == 0)
        fields.hour = 0;
    else
        fields = withField(fields, field, number.value, rules);
    return fields;
}

} // namespace glimmet
