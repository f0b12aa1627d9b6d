#include "revenue/Periods.h"

#include "platform/UserRegion.h"

#include <cmath>

namespace glimmet::Periods {
namespace {

constexpr double day = 86400;

double unixSeconds(Instant moment)
{
    return moment.unixMilliseconds() / 1000.0;
}

/// What the user's wall clock shows at `moment`, as seconds since it showed the beginning of 1970.
double wallClock(Instant moment, const UserRegion &region)
{
    return unixSeconds(moment) + region.utcOffset(moment);
}

/// When the wall clock shows that: the first time where it does so twice, and where it never does, as far
/// behind the gap as the time is inside it.
Instant momentOf(double wallClockSeconds, const UserRegion &region)
{
    const auto at = [&](double offset) { return Instant::fromUnixSeconds(wallClockSeconds - offset); };
    // A day to either side lies beyond the change of the clock, if there is one near.
    const int before = region.utcOffset(at(day));
    const int after = region.utcOffset(at(-day));
    if (region.utcOffset(at(before)) != before && region.utcOffset(at(after)) == after)
        return at(after);
    return at(before);
}

} // namespace

QDate dateAt(Instant moment, const UserRegion &region)
{
    const double days = std::floor(wallClock(moment, region) / day);
    return QDate(1970, 1, 1).addDays(static_cast<qint64>(days));
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
    return momentOf(wallClock(moment, region) - 7 * day, region);
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

} // namespace glimmet::Periods
