#include "ui/editors/DateTimeReading.h"

#include <algorithm>

namespace glimmet {

namespace {

constexpr int hoursOfDay = 24;

DateTimeField firstOfDate(const QList<DateTimeField> &dateOrder, const InputRules &rules)
{
    return dateOrder.isEmpty() ? rules.order.first() : dateOrder.first();
}

/// As it was before the digits, with their number being typed in `field`.
DateTimeInput withNumberAt(DateTimeField field, const DigitRun &run, const InputRules &rules)
{
    DateTimeInput result;
    result.fields = run.before;
    result.moved = run.movedBefore;
    result.dateOrder = run.dateOrder;
    result.row = rules.rowOf(field);
    result.number = run.number;
    return result;
}

/// The hour of a clock of 24, whatever the field's own numbers are. 24 is the midnight that ends the day.
DateTimeInput withHour(DateTimeInput input, int hour, const InputRules &rules)
{
    const FieldRange range = fieldRange(DateTimeField::Hour, rules.fields);
    if (hour >= range.lowest && hour <= range.highest) {
        input.fields = withField(input.fields, DateTimeField::Hour, hour, rules.fields);
    } else if (hour == hoursOfDay) {
        input.fields = withDayAfter(input.fields);
        input.fields.hour = 0;
    } else {
        input.fields.hour = std::min(hour, hoursOfDay - 1);
    }
    input.moved.removeAll(DateTimeField::Hour);
    if (hour > hoursOfDay)
        input.moved.append(DateTimeField::Hour);
    input.row = rules.rowOf(DateTimeField::Hour) + 1;
    input.number = {};
    input.isAfterHour = true;
    return input;
}

/// The first one from `first` on that has the day and does not put it before `today`.
int nextYearWith(const DateTimeFields &fields, int first, QDate today)
{
    constexpr int longestBetweenLeapYears = 8;
    for (int year = first; year <= first + longestBetweenLeapYears; ++year) {
        const QDate date(year, fields.month, fields.day);
        if (date.isValid() && (!today.isValid() || date >= today))
            return year;
    }
    return first;
}

} // namespace

std::optional<DateTimeInput> withOneNumber(const DateTimeInput &input, const InputRules &rules)
{
    const DigitRun run = input.run.value_or(DigitRun{});
    const DateTimeField field = rules.order.at(run.row);
    const bool isInTwo = run.number.length == 2 && field != DateTimeField::Year
        && field != DateTimeField::Minute && run.number.value > fieldRange(field, rules.fields).highest;
    if (!isInTwo)
        return std::nullopt;
    const DateTimeInput result = withNumberAt(field, run, rules);
    return field == DateTimeField::Hour ? withHour(result, run.number.value, rules) : result;
}

std::optional<DateTimeInput> withoutYear(const DateTimeInput &input, const InputRules &rules)
{
    const DigitRun run = input.run ? *input.run : input.ended.value_or(DigitRun{});
    const int length = run.number.length;
    const bool isHour = (length == 1 || length == 2) && run.number.value <= hoursOfDay
        && rules.order.at(run.row) == DateTimeField::Year
        && firstOfDate(run.dateOrder, rules) != DateTimeField::Year;
    if (!isHour)
        return std::nullopt;
    DateTimeInput result = withNumberAt(DateTimeField::Year, run, rules);
    result.dateOrder.clear();
    result.fields.year = nextYearWith(result.fields, rules.fields.firstYear, rules.today);
    return withHour(withDayOfMonth(result), run.number.value, rules);
}

std::optional<DateTimeInput> withoutYearBeforeStop(const DateTimeInput &input, const InputRules &rules)
{
    const TypedNumber number = input.run.value_or(DigitRun{}).number;
    const bool canBeYear = number.length != 1 && takesNumber(DateTimeField::Year, number, rules.fields);
    return canBeYear ? std::nullopt : withoutYear(input, rules);
}

std::optional<DateTimeInput> withYearFirst(
    const DateTimeInput &input, bool isBeforeBlank, const InputRules &rules)
{
    constexpr int century = 100;
    const DigitRun run = input.run.value_or(DigitRun{});
    const int first = rules.fields.firstYear;
    const bool isYear = run.row == 0 && rules.order.first() != DateTimeField::Year && run.number.length == 4
        && run.number.value / century == first / century && (run.number.value >= first || !isBeforeBlank);
    if (!isYear)
        return std::nullopt;
    DateTimeInput result = finished(withNumberAt(DateTimeField::Year, run, rules), rules);
    result.row = rules.rowOf(DateTimeField::Month);
    result.dateOrder = { DateTimeField::Year, DateTimeField::Month, DateTimeField::Day };
    return result;
}

std::optional<DateTimeInput> withDayBeforeMonth(const DateTimeInput &input, const InputRules &rules)
{
    const DigitRun run = input.run ? *input.run : input.ended.value_or(DigitRun{});
    if (run.number.length == 0 || run.number.length > 2 || !isOfDate(rules.order.at(run.row)))
        return std::nullopt;
    DateTimeInput day = withNumberAt(DateTimeField::Day, run, rules);
    day.dateOrder = { DateTimeField::Day, DateTimeField::Month, DateTimeField::Year };
    return movedOn(day, rules);
}

} // namespace glimmet
