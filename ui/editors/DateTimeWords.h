#pragma once

#include "ui/editors/DateTimeInput.h"

namespace glimmet {

/// The words of a date while they are typed. `DateTimeInput` has the rules.

bool isWordBeingTyped(const DateTimeInput &input);
/// With one more letter, the keyboard at the month while the word may be its name; none where no word has it.
std::optional<DateTimeInput> withWordLetter(
    const DateTimeInput &input, const QString &letter, const InputRules &rules);
/// With the word taken that is being typed, and the keyboard at the month where it names one.
DateTimeInput withWord(const DateTimeInput &input, const InputRules &rules);
/// The same, and beyond the month; unchanged where no word is being typed.
DateTimeInput behindWord(const DateTimeInput &input, const InputRules &rules);

} // namespace glimmet
