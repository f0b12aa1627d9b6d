#include "ui/editors/DateTimeInput.h"

#include "ui/editors/DateTimeReading.h"
#include "ui/editors/DateTimeWords.h"

#include <algorithm>

namespace glimmet {

namespace {

DateTimeInput withNumberTaken(DateTimeInput input, DateTimeField field, const FieldRules &rules)
{
    input.moved.removeAll(field);
    if (!takesNumber(field, input.number, rules))
        input.moved.append(field);
    input.fields = withTypedNumber(input.fields, field, input.number, rules);
    input.number = {};
    return input;
}

/// The field behind the one with the keyboard; none behind the last.
std::optional<int> nextRow(const DateTimeInput &input, const InputRules &rules)
{
    const qsizetype place = input.dateOrder.indexOf(rules.order.at(input.row));
    if (place >= 0 && place + 1 < input.dateOrder.size())
        return rules.rowOf(input.dateOrder.at(place + 1));
    const auto from = rules.order.cbegin() + input.row + 1;
    const auto next = place >= 0 ? std::find_if_not(from, rules.order.cend(), isOfDate) : from;
    if (next == rules.order.cend())
        return std::nullopt;
    return static_cast<int>(next - rules.order.cbegin());
}

bool isLastOfDate(const DateTimeInput &input, const InputRules &rules)
{
    const auto next = nextRow(input, rules);
    return isOfDate(rules.order.at(input.row)) && (!next || !isOfDate(rules.order.at(*next)));
}

/// A second digit of a minute that only takes one: no minute is so late.
DateTimeInput withLastMinute(DateTimeInput input, const InputRules &rules)
{
    input.fields.minute = fieldRange(DateTimeField::Minute, rules.fields).highest;
    input.moved.append(DateTimeField::Minute);
    input.isMinuteFull = false;
    return input;
}

std::optional<DateTimeInput> withNumber(DateTimeInput input, int digit, const InputRules &rules)
{
    if (input.isMinuteFull)
        return withLastMinute(input, rules);
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
    if (!isComplete(input.number, highest))
        return input;
    DateTimeInput next = movedOn(input, rules);
    next.isMinuteFull = field == DateTimeField::Minute && input.number.length == 1;
    return next;
}

DigitRun longerRun(const DateTimeInput &input, int digit, const InputRules &rules)
{
    constexpr int longest = 5;
    const bool isBeforeHour = rules.order.at(input.row) == DateTimeField::DayPeriod;
    DigitRun run = input.run.value_or(
        DigitRun{ input.row + (isBeforeHour ? 1 : 0), input.fields, input.moved, input.dateOrder, {} });
    if (run.number.length < longest)
        run.number = withDigit(run.number, digit);
    return run;
}

std::optional<DateTimeInput> withTypedDigit(const DateTimeInput &input, int digit, const InputRules &rules)
{
    const DateTimeInput from = behindWord(input, rules);
    auto next = withNumber(from, digit, rules);
    if (next) {
        next->run = longerRun(from, digit, rules);
        next->ended.reset();
    }
    return next;
}

bool isLetter(const QString &character)
{
    return !character.isEmpty() && (character.front().isLetter() || character.front().isMark());
}

/// Where the hour is what was typed before a day period or an hour's word.
DateTimeInput beforePeriod(const DateTimeInput &input, const InputRules &rules)
{
    if (const auto reread = withoutYear(input, rules))
        return *reread;
    return withOneNumber(input, rules).value_or(input);
}

/// Whether an hour has just been typed, and no minute.
bool isFullHour(const DateTimeInput &input, const InputRules &rules)
{
    const bool isInHour = rules.order.at(input.row) == DateTimeField::Hour;
    return input.isAfterHour || (isInHour && input.number.length > 0);
}

std::optional<DateTimeInput> withPeriodLetter(
    const DateTimeInput &typed, const QString &letter, const InputRules &rules)
{
    const DateTimeInput input = beforePeriod(typed, rules);
    if (isOfDate(rules.order.at(input.row)))
        return std::nullopt;
    QString letters = input.letters + letter;
    auto period = dayPeriodOf(letters, rules.dayPeriods);
    if (!period) {
        letters = letter;
        period = dayPeriodOf(letters, rules.dayPeriods);
    }
    if (!period)
        return std::nullopt;
    DateTimeInput result = finished(input, rules);
    if (isFullHour(input, rules))
        result.fields.minute = 0;
    result.fields = withField(result.fields, DateTimeField::DayPeriod, *period, rules.fields);
    result.letters = letters;
    result.row = std::max(input.row, rules.rowOf(DateTimeField::DayPeriod));
    return result;
}

std::optional<DateTimeInput> withHourWordLetter(
    const DateTimeInput &typed, const QString &letter, const InputRules &rules)
{
    const DateTimeInput input = beforePeriod(typed, rules);
    if (isOfDate(rules.order.at(input.row)))
        return std::nullopt;
    const bool goesOn = beginsHourWord(input.letters + letter, rules.languages);
    if (!goesOn && !beginsHourWord(letter, rules.languages))
        return std::nullopt;
    DateTimeInput result = input.number.length > 0 ? movedOn(input, rules) : finished(input, rules);
    if (isFullHour(input, rules))
        result.fields.minute = 0;
    result.letters = goesOn ? input.letters + letter : letter;
    return result;
}

std::optional<DateTimeInput> withTypedLetter(
    const DateTimeInput &input, const QString &letter, const InputRules &rules)
{
    if (!isLetter(letter))
        return std::nullopt;
    if (!isWordBeingTyped(input)) {
        if (const auto next = withPeriodLetter(input, letter, rules))
            return next;
        if (const auto next = withHourWordLetter(input, letter, rules))
            return next;
    }
    return isOfDate(rules.order.at(input.row)) ? withWordLetter(input, letter, rules) : std::nullopt;
}

bool isBlank(const QString &character)
{
    return character.front().category() == QChar::Separator_Space;
}

bool isSeparator(const QString &character, const InputRules &rules)
{
    static const QString common =
        QStringLiteral("./:,;\u060C\u061B\u066B\u066C\u3001\u3002\uFF0C\uFF0E\uFF0F\uFF1A");
    if (character.size() != 1)
        return false;
    return isBlank(character) || character.front().category() == QChar::Punctuation_Dash
        || common.contains(character) || rules.separators.contains(character, Qt::CaseInsensitive);
}

/// What a separator tells of the digits before it.
DateTimeInput reread(const DateTimeInput &input, const QString &separator, const InputRules &rules)
{
    const bool isColon = separator == u':' || separator == u'\uFF1A';
    if (const auto other = withYearFirst(input, isBlank(separator), rules))
        return *other;
    if (const auto other = isColon && input.run ? withoutYear(input, rules) : std::nullopt)
        return *other;
    const bool isStop = separator == u'.' && input.run;
    if (const auto other = isStop ? withoutYearBeforeStop(input, rules) : std::nullopt)
        return *other;
    return withOneNumber(input, rules).value_or(input);
}

DateTimeInput withSeparator(const DateTimeInput &input, const QString &separator, const InputRules &rules)
{
    const DateTimeInput from = behindWord(input, rules);
    DateTimeInput result = reread(from, separator, rules);
    const bool namesPeriod =
        !result.letters.isEmpty() && rules.order.at(result.row) == DateTimeField::DayPeriod;
    const bool ends = result.number.length > 0 || (namesPeriod && nextRow(result, rules));
    if (ends)
        result = movedOn(result, rules);
    result.ended = from.run ? from.run : from.ended;
    result.run.reset();
    result.isMinuteFull = false;
    result.isOver = result.isOver || result.isFilled;
    return result;
}

} // namespace

DateTimeInput withDayOfMonth(DateTimeInput input)
{
    const int lastDay = minuteOf(input.fields).date.day();
    if (lastDay == input.fields.day)
        return input;
    input.fields.day = lastDay;
    input.moved.append(DateTimeField::Day);
    return input;
}

DateTimeInput finished(const DateTimeInput &input, const InputRules &rules)
{
    if (isWordBeingTyped(input))
        return finished(withWord(input, rules), rules);
    DateTimeInput result;
    result.fields = input.fields;
    result.row = input.row;
    result.moved = input.moved;
    if (input.number.length == 0)
        return result;
    result.number = input.number;
    result = withNumberTaken(result, rules.order.at(input.row), rules.fields);
    return isLastOfDate(input, rules) ? withDayOfMonth(result) : result;
}

DateTimeInput movedOn(const DateTimeInput &input, const InputRules &rules)
{
    DateTimeInput result = finished(input, rules);
    const auto next = nextRow(input, rules);
    result.isFilled = !next;
    result.row = next.value_or(input.row);
    result.isAfterHour = rules.order.at(input.row) == DateTimeField::Hour && input.number.length > 0;
    if (isOfDate(rules.order.at(result.row)))
        result.dateOrder = input.dateOrder;
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
