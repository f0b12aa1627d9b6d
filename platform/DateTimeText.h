#pragma once

#include "platform/Instant.h"
#include "platform/UserRegion.h"

#include <QDate>
#include <QString>

namespace glimmet {

/// Dates in the user's words and digits, always by the Gregorian calendar, which the panel's own calendar
/// has. `locale` is an ICU locale name. A text is empty where ICU has none.

/// The moment as a medium date with a short time, such as "May 4, 2026, 9:05 AM".
QString mediumDateTimeText(Instant moment, const UserRegion &region);

/// A day with its weekday, such as "Monday, May 4, 2026".
QString fullDateText(QDate date, const QByteArray &locale);

/// The month of a day as the title of a calendar, such as "May 2026".
QString monthText(QDate date, const QByteArray &locale);

} // namespace glimmet
