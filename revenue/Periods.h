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

/// A stretch of time.
struct Span {
    std::optional<Instant> begin; ///< its first moment; none: it never began
    std::optional<Instant> end; ///< the first one behind it; none: it does not end

    bool contains(Instant moment) const { return (!begin || moment >= *begin) && (!end || moment < *end); }
};

/// The earliest moment that counts in the period at `now`; none where all do.
std::optional<Instant> cutoffDate(RevenueMode period, Instant now, const UserRegion &region);
/// The period at `now` with what is to come: only today ends, and does so at midnight.
Span spanAt(RevenueMode period, Instant now, const UserRegion &region);

} // namespace Periods
} // namespace glimmet
