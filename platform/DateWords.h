#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

namespace glimmet {

/// The words of which a locale makes a written date, by the Gregorian calendar.
struct DateWords {
    QList<QStringList> months; ///< of January first: each name that it has, alone and in a date
    QStringList others; ///< the weekdays' names, long and short, and what stands between the parts
    QStringList ofHour; ///< what stands beside an hour, such as "Uhr"; none in most languages

    friend bool operator==(const DateWords &, const DateWords &) = default;
};

/// The words of an ICU locale name; those of ICU's root where it does not know the locale.
DateWords dateWords(const QByteArray &localeName);

} // namespace glimmet
