#pragma once

#include "platform/Instant.h"
#include "platform/UserRegion.h"

#include <QDate>
#include <QString>

#include <memory>

namespace glimmet {

/// Dates in the user's words and digits, always by the Gregorian calendar, which the panel's own calendar
/// has. `locale` is an ICU locale name. A text is empty where ICU has none.

/// The moment as a medium date with a short time, such as "May 4, 2026, 9:05 AM".
QString mediumDateTimeText(Instant moment, const UserRegion &region);

/// The same of a moment that is not long ago: of today the time alone, such as "9:05 AM". Today is the day of
/// `now`.
QString recentTimeText(Instant moment, Instant now, const UserRegion &region);

/// A day with its weekday, such as "Monday, May 4, 2026".
QString fullDateText(QDate date, const QByteArray &locale);

/// The month of a day as the title of a calendar, such as "May 2026".
QString monthText(QDate date, const QByteArray &locale);

/// What a clock shows each second. To make a date formatter costs ICU thirty times what using it does, so
/// the last one is kept for as long as the locale, the pattern and the zone's offset are what they were; the
/// region is asked at every call all the same. Main thread.
class ClockText {
public:
    /// `region` outlives it.
    explicit ClockText(const UserRegion &region);
    ~ClockText();

    /// The moment as the user's wall clock shows it, by a Unicode date pattern
    /// (https://unicode.org/reports/tr35/tr35-dates.html#Date_Format_Patterns), with the locale's digits and
    /// AM/PM markers.
    QString at(Instant moment, QStringView pattern) const;

private:
    struct Formatter;

    const UserRegion &m_region;
    mutable std::unique_ptr<Formatter> m_formatter; ///< of the last text
};

} // namespace glimmet
