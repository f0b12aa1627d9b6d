#pragma once

#include "platform/DateWords.h"

#include <optional>

namespace glimmet {

/// The letters of a text alone, their case folded.
QString foldedLetters(const QString &text);

/// What letters that are typed into a date mean, by the words of several languages, which are asked one after
/// the other. Names that hold digits count for nothing: the digits are typed as such.

enum class DateWordKind {
    None, ///< no word begins so
    Month,
    MonthBeginning, ///< could still become one of several months
    Other ///< a weekday, "de", the "th" of "24th" or the like, be it only its beginning
};

struct DateWord {
    DateWordKind kind = DateWordKind::None;
    int month = 0; ///< 1 to 12 of a month, else 0

    friend bool operator==(const DateWord &, const DateWord &) = default;
};

/// Whether a word that stands beside an hour begins with the letters.
bool beginsHourWord(const QString &letters, const QList<DateWords> &languages);

/// The first language that has a meaning decides: a month's whole name is that month, then come the other
/// words as a whole, then the beginning of a month's name.
DateWord dateWordOf(const QString &letters, const QList<DateWords> &languages);

} // namespace glimmet
