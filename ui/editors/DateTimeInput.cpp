#include "ui/editors/DateTimeInput.h"

#include <algorithm>

namespace glimmet {

namespace {

int rowOf(DateTimeField field, const InputRules &rules)
{
    return static_cast<int>(rules.order.indexOf(field));
}

bool isDate(DateTimeField field)
{
    return field == DateTimeField::Year || field == DateTimeField::Month || field == DateTimeField::Day;
}

/// The field behind the one with the keyboard; none behind the last.
std::optional<int> nextRow(const DateTimeInput &input, const InputRules &rules)
{
    if (input.isYearFirst && rules.order.at(input.row) == DateTimeField::Month)
        return rowOf(DateTimeField::Day, rules);
    const auto from = rules.order.cbegin() + input.row + 1;
    const auto next = input.isYearFirst ? std::find_if_not(from, rules.order.cend(), isDate) : from;
    if (next == rules.order.cend())
        return std::nullopt;
    return static_cast<int>(next - rules.order.cbegin());
}

/// At the next field, the typed number being taken; in the last one the keyboard stays.
DateTimeInput movedOn(const DateTimeInput &input, const InputRules &rules)
{
    DateTimeInput result = finished(input, rules);
    const auto next = nextRow(input, rules);
    result.isFilled = !next;
    result.row = next.value_or(input.row);
    result.isAfterHour = rules.order.at(input.row) == DateTimeField::Hour && input.number.length > 0;
    result.isYearFirst = input.isYearFirst && isDate(rules.order.at(result.row));
    return result;
}

std::optional<DateTimeInput> withNumber(DateTimeInput input, int digit, const InputRules &rules)
{
    const DateTimeField field = rules.order.at(input.row);
    if (field == DateTimeField::DayPeriod) {
        if (!nextRow(input, rules))
            return std::nullopt;
        return withNumber(movedOn(input, rules), digit, rules);
    }
    if (input.isOver)
        return input;
    const int highest = fieldRange(field, rules.fields).highest;
    if (!takesDigit(input.number, digit, highest))
        return withNumber(movedOn(input, rules), digit, rules);
    input.letters.clear();
    input.isFilled = false;
    input.isAfterHour = false;
    input.number = withDigit(input.number, digit);
    return isComplete(input.number, highest) ? movedOn(input, rules) : input;
}

DigitRun longerRun(const DateTimeInput &input, int digit, const InputRules &rules)
{
    constexpr int longest = 5;
    const bool isBeforeHour = rules.order.at(input.row) == DateTimeField::DayPeriod;
    DigitRun run = input.run.value_or(DigitRun{ input.row + (isBeforeHour ? 1 : 0), input.fields, {} });
    if (run.number.length < longest)
        run.number = withDigit(run.number, digit);
    return run;
}

std::optional<DateTimeInput> withTypedDigit(const DateTimeInput &input, int digit, const InputRules &rules)
{
    auto next = withNumber(input, digit, rules);
    if (next)
        next->run = longerRun(input, digit, rules);
    return next;
}

std::optional<DateTimeInput> withTypedLetter(
    const DateTimeInput &input, const QString &letter, const InputRules &rules)
{
    if (isDate(rules.order.at(input.row)) || letter.isEmpty() || !letter.front().isLetter())
        return std::nullopt;
    QString letters = input.letters + letter;
    auto period = dayPeriodOf(letters, rules.dayPeriods);
    if (!period) {
        letters = letter;
        period = dayPeriodOf(letters, rules.dayPeriods);
    }
    if (!period)
        return std::nullopt;
    const bool isFullHour =
        input.isAfterHour || (rules.order.at(input.row) == DateTimeField::Hour && input.number.length > 0);
    DateTimeInput result = finished(input, rules);
    if (isFullHour)
        result.fields.minute = 0;
    result.fields = withField(result.fields, DateTimeField::DayPeriod, *period, rules.fields);
    result.letters = letters;
    result.row = std::max(input.row, rowOf(DateTimeField::DayPeriod, rules));
    return result;
}

bool isSeparator(const QString &character, const InputRules &rules)
{
    static const QString common =
        QStringLiteral("./:,;\u060C\u061B\u066B\u066C\u3001\u3002\uFF0C\uFF0E\uFF0F\uFF1A");
    if (character.size() != 1)
        return false;
    const QChar::Category category = character.front().category();
    return category == QChar::Separator_Space || category == QChar::Punctuation_Dash
        || common.contains(character) || rules.separators.contains(character, Qt::CaseInsensitive);
}

/// What the colon of "13:" tells of the 1 and the 3.
std::optional<DateTimeInput> withHourOf24(
    const DateTimeInput &input, const QString &separator, const InputRules &rules)
{
    constexpr int hoursOfDay = 24;
    const DigitRun run = input.run.value_or(DigitRun{});
    const bool isHour = rules.order.at(run.row) == DateTimeField::Hour && run.number.length == 2
        && run.number.value > fieldRange(DateTimeField::Hour, rules.fields).highest
        && run.number.value < hoursOfDay;
    if (!isHour || (separator != u':' && separator != u'\uFF1A'))
        return std::nullopt;
    DateTimeInput result;
    result.fields = run.before;
    result.fields.hour = run.number.value;
    result.row = run.row + 1;
    return result;
}

/// What the colon of "24.12. 18:" tells of the 18, which went to the year.
std::optional<DateTimeInput> withoutYear(
    const DateTimeInput &input, const QString &separator, const InputRules &rules)
{
    constexpr int hoursOfDay = 24;
    const bool isYear =
        rules.order.at(input.row) == DateTimeField::Year && rules.order.first() != DateTimeField::Year;
    const int length = input.number.length;
    const bool isHour = (length == 1 || length == 2) && input.number.value < hoursOfDay;
    if (!isYear || !isHour || (separator != u':' && separator != u'\uFF1A'))
        return std::nullopt;
    DateTimeInput result;
    result.fields = input.fields;
    result.fields.year = rules.fields.firstYear;
    if (rules.today.isValid() && minuteOf(result.fields).date < rules.today)
        ++result.fields.year;
    const int hour = input.number.value;
    const FieldRange hours = fieldRange(DateTimeField::Hour, rules.fields);
    if (hour >= hours.lowest && hour <= hours.highest)
        result.fields = withField(result.fields, DateTimeField::Hour, hour, rules.fields);
    else
        result.fields.hour = hour;
    result.row = rowOf(DateTimeField::Hour, rules) + 1;
    result.isAfterHour = true;
    return result;
}

/// What the first "-" of "2027-02-01" tells of the digits before it. A year of this century is neither a day
/// and a month nor a month and a day.
std::optional<DateTimeInput> withYearFirst(
    const DateTimeInput &input, const QString &separator, const InputRules &rules)
{
    constexpr int century = 100;
    const DigitRun run = input.run.value_or(DigitRun{});
    const int first = rules.fields.firstYear;
    const bool isYear = run.row == 0 && rules.order.first() != DateTimeField::Year && run.number.length == 4
        && run.number.value >= first && run.number.value / century == first / century;
    if (!isYear || (separator != u'-' && separator != u'/'))
        return std::nullopt;
    DateTimeInput result;
    result.fields = withField(run.before, DateTimeField::Year, run.number.value, rules.fields);
    result.row = rowOf(DateTimeField::Month, rules);
    result.isYearFirst = true;
    return result;
}

DateTimeInput withSeparator(const DateTimeInput &input, const QString &separator, const InputRules &rules)
{
    if (const auto reread = withHourOf24(input, separator, rules))
        return *reread;
    if (const auto reread = withoutYear(input, separator, rules))
        return *reread;
    if (const auto reread = withYearFirst(input, separator, rules))
        return *reread;
    const bool namesPeriod =
        !input.letters.isEmpty() && rules.order.at(input.row) == DateTimeField::DayPeriod;
    const bool ends = input.number.length > 0 || (namesPeriod && nextRow(input, rules));
    DateTimeInput result = ends ? movedOn(input, rules) : input;
    result.run.reset();
    result.isOver = result.isOver || result.isFilled;
    return result;
}

} // namespace

DateTimeInput finished(const DateTimeInput &input, const InputRules &rules)
{
    DateTimeInput result;
    result.fields = input.fields;
    result.row = input.row;
    if (input.number.length > 0)
        result.fields = withTypedNumber(input.fields, rules.order.at(input.row), input.number, rules.fields);
    return result;
}

std::optional<DateTimeInput> withTyped(
    const DateTimeInput &input, const QString &character, const InputRules &rules)
{
    if (const int digit = digitValue(character); digit >= 0)
        return withTypedDigit(input, digit, rules);
    if (const auto next = withTypedLetter(input, character, rules))
        return next;
    if (isSeparator(character, rules))
        return withSeparator(input, character, rules);
    return std::nullopt;
}

} // namespace glimmet
