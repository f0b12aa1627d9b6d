#pragma once

#include "ui/editors/DateTimeInput.h"

#include <ostream>

namespace glimmet {

/// Typing a date and time, as the tests of it do. It is 2026-05-04, and the fields show 21:05 of that day.

inline InputRules rulesOf(const char *locale)
{
    const DateTimeConventions conventions = dateTimeConventions(locale);
    InputRules rules{ {}, { conventions.uses12Hours, 2026 }, conventions.dayPeriods, {}, { 2026, 5, 4 },
        { dateWords(locale), dateWords("en") } };
    for (const FieldPlace &place : conventions.dateFields + conventions.timeFields) {
        rules.order.append(place.field);
        rules.separators += place.separator;
    }
    return rules;
}

/// "2026-05-04 09:05"
inline QString text(const DateTimeFields &fields)
{
    const auto number = [](int value) { return QString::number(value).rightJustified(2, u'0'); };
    return number(fields.year) + u'-' + number(fields.month) + u'-' + number(fields.day) + u' '
        + number(fields.hour) + u':' + number(fields.minute);
}

/// Types from the field on that is read first, or from the one given.
inline DateTimeInput typing(
    const char *locale, const QString &letters, std::optional<DateTimeField> first = std::nullopt)
{
    const InputRules rules = rulesOf(locale);
    DateTimeInput input;
    input.fields = { 2026, 5, 4, 21, 5 };
    input.row = first ? static_cast<int>(rules.order.indexOf(*first)) : 0;
    for (const QChar letter : letters)
        input = withTyped(input, QString(letter), rules).value_or(input);
    return input;
}

inline DateTimeInput typedInput(
    const char *locale, const QString &letters, std::optional<DateTimeField> first = std::nullopt)
{
    return finished(typing(locale, letters, first), rulesOf(locale));
}

inline QString typed(
    const char *locale, const QString &letters, std::optional<DateTimeField> first = std::nullopt)
{
    return text(typedInput(locale, letters, first).fields);
}

inline DateTimeField fieldAfter(const char *locale, const QString &letters, DateTimeField first)
{
    return rulesOf(locale).order.at(typing(locale, letters, first).row);
}

} // namespace glimmet
