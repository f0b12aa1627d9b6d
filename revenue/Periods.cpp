#include "revenue/Periods.h"

#include "platform/UserRegion.h"
#include "platform/WallClock.h"

namespace glimmet::Periods {
namespace {

constexpr double day = 86400;

/// When the wall clock shows that: the first time where it does so twice.
Instant momentOf(double wallClockSeconds, const UserRegion &region)
{
    return WallClock::momentsOf(wallClockSeconds, region).first;
}

} // namespace

QDate dateAt(Instant moment, const UserRegion &region)
{
    return WallClock::dateAt(moment, region);
}

Instant startOfDay(QDate date, const UserRegion &region)
{
    return momentOf(static_cast<double>(QDate(1970, 1, 1).daysTo(date)) * day, region);
}

Instant weekBefore(Instant moment, const UserRegion &region)
{
    // Of two times with this wall clock, the one that is seven whole days ago.
    const Instant sevenDaysAgo = moment.advanced(-7 * day);
    if (region.utcOffset(sevenDaysAgo) == region.utcOffset(moment))
        return sevenDaysAgo;
    return momentOf(WallClock::secondsAt(moment, region) - 7 * day, region);
}

QDate firstOfMonth(QDate date)
{
    return QDate(date.year(), date.month(), 1);
}

std::optional<Instant> cutoffDate(RevenueMode period, Instant now, const UserRegion &region)
{
    switch (period) {
    case RevenueMode::Today:
        return startOfDay(dateAt(now, region), region);
    case RevenueMode::Week:
        return weekBefore(now, region);
    case RevenueMode::Month:
        return startOfDay(firstOfMonth(dateAt(now, region)), region);
    case RevenueMode::AllTime:
        return std::nullopt;
    }
    Q_UNREACHABLE();
}

Span spanAt(RevenueMode period, Instant now, const UserRegion &region)
{
    Span span{ cutoffDate(period, now, region), std::nullopt };
    if (period == RevenueMode::Today)
        span.end = startOfDay(dateAt(now, region).addDays(1), region);
    return span;
}

} // namespace glimmet::Periods
