#pragma once

#include "ui/editors/DateTimeInput.h"

namespace glimmet {

/// What a character tells of the digits that were typed before it: other fields than those that they went
/// to. None where they are in their right fields. `DateTimeInput` has the rules.

/// Two digits that are one number after all, "24" or "13" in a field that took only the first.
std::optional<DateTimeInput> withOneNumber(const DateTimeInput &input, const InputRules &rules);
/// The digits of a year that are the hour, the year being left out.
std::optional<DateTimeInput> withoutYear(const DateTimeInput &input, const InputRules &rules);
/// The same before a full stop, which stands behind few years: where the year would be past or has one digit.
std::optional<DateTimeInput> withoutYearBeforeStop(const DateTimeInput &input, const InputRules &rules);
/// Four digits that are the year, with the month next.
std::optional<DateTimeInput> withYearFirst(
    const DateTimeInput &input, bool isBeforeBlank, const InputRules &rules);
/// One or two digits before a month's name that are the day, with the keyboard at the month.
std::optional<DateTimeInput> withDayBeforeMonth(const DateTimeInput &input, const InputRules &rules);

} // namespace glimmet
