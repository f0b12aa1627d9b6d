#pragma once

#include "platform/Instant.h"
#include "revenue/RevenueChoices.h"

#include <QDate>

#include <optional>

namespace glimmet {

class UserRegion;

/// Where the revenue periods begin: in the Gregorian calendar, on the user's wall clock. Main thread.
namespace Periods {

/// The user's date at `moment`.
QDate dateAt(Instant moment, const UserRegion &region);
/// The first moment of `date`: midnight, or what follows it where the clock was put forward over it.
Instant startOfDay(QDate date, const UserRegion &region);
/// The same time of day seven days before `moment`.
Instant weekBefore(Instant moment, const UserRegion &region);
QDate firstOfMonth(QDate date);

/// The earliest moment that counts in the period at `now`; none where all do.
std::optional<Instant> cutoffDate(RevenueMode period, Instant now, const UserRegion &region);

} // namespace Periods
} // namespace glimmet
