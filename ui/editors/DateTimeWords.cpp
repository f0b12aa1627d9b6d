#include "ui/editors/DateTimeWords.h"

#include "ui/editors/DateTimeReading.h"

namespace glimmet {

namespace {

/// As it was before the word that is being typed.
DateTimeInput withoutWord(DateTimeInput input)
{
    input.row = input.wordRow;
    input.wordRow = -1;
    input.letters.clear();
    return input;
}

bool isMonth(const DateWord &word)
{
    return word.kind == DateWordKind::Month || word.kind == DateWordKind::MonthBeginning;
}

/// At the month, what stands before its name being taken.
DateTimeInput atMonth(const DateTimeInput &input, const InputRules &rules)
{
    if (const auto reread = withDayBeforeMonth(input, rules))
        return *reread;
    if (const auto reread = withYearFirst(input, false, rules))
        return *reread;
    const int month = rules.rowOf(DateTimeField::Month);
    DateTimeInput result = finished(input, rules);
    result.dateOrder = input.dateOrder;
    if (result.dateOrder.isEmpty() && input.row != month)
        result.dateOrder = { DateTimeField::Month, DateTimeField::Day, DateTimeField::Year };
    result.row = month;
    return result;
}

} // namespace

bool isWordBeingTyped(const DateTimeInput &input)
{
    return input.wordRow >= 0;
}

DateTimeInput withWord(const DateTimeInput &input, const InputRules &rules)
{
    const DateWord word = dateWordOf(input.letters, rules.languages);
    if (!isMonth(word))
        return withoutWord(input);
    DateTimeInput result = atMonth(withoutWord(input), rules);
    result.moved.removeAll(DateTimeField::Month);
    if (word.kind == DateWordKind::Month)
        result.fields = withField(result.fields, DateTimeField::Month, word.month, rules.fields);
    else
        result.moved.append(DateTimeField::Month);
    return result;
}

DateTimeInput behindWord(const DateTimeInput &input, const InputRules &rules)
{
    if (!isWordBeingTyped(input))
        return input;
    const bool namesMonth = isMonth(dateWordOf(input.letters, rules.languages));
    const DateTimeInput taken = withWord(input, rules);
    return namesMonth ? movedOn(taken, rules) : taken;
}

std::optional<DateTimeInput> withWordLetter(
    const DateTimeInput &input, const QString &letter, const InputRules &rules)
{
    DateTimeInput result = input;
    result.letters = (isWordBeingTyped(input) ? input.letters : QString()) + letter;
    result.wordRow = isWordBeingTyped(input) ? input.wordRow : input.row;
    const DateWord word = dateWordOf(result.letters, rules.languages);
    if (word.kind == DateWordKind::None)
        return std::nullopt;
    result.row = isMonth(word) ? rules.rowOf(DateTimeField::Month) : result.wordRow;
    return result;
}

} // namespace glimmet
