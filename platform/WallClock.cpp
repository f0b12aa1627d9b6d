#include "platform/WallClock.h"

#include "platform/UserRegion.h"

#include <cmath>

namespace glimmet::WallClock {
namespace {

constexpr qint64 minuteLength = 60;
constexpr qint64 hourLength = 60 * minuteLength;
constexpr qint64 dayLength = 24 * hourLength;
constexpr QDate beginning = QDate::fromJulianDay(2'440'588); // of 1970

} // namespace

double secondsAt(Instant moment, const UserRegion &region)
{
    return moment.unixMilliseconds() / 1000.0 + region.utcOffset(moment);
}

Moments momentsOf(double seconds, const UserRegion &region)
{
    const auto at = [&](double offset) { return Instant::fromUnixSeconds(seconds - offset); };
    // A day to either side lies beyond the change of the clock, if there is one near.
    const int before = region.utcOffset(at(dayLength));
    const int after = region.utcOffset(at(-dayLength));
    const bool isBefore = region.utcOffset(at(before)) == before;
    const bool isAfter = region.utcOffset(at(after)) == after;
    if (isBefore && isAfter)
        return { at(before), at(after) };
    const Instant only = isAfter ? at(after) : at(before);
    return { only, only };
}

Minute minuteAt(Instant moment, const UserRegion &region)
{
    const auto seconds = static_cast<qint64>(std::floor(secondsAt(moment, region)));
    const QDate date = dateAt(moment, region);
    const qint64 ofDay = seconds - beginning.daysTo(date) * dayLength;
    return { date, static_cast<int>(ofDay / hourLength),
        static_cast<int>(ofDay % hourLength / minuteLength) };
}

Moments momentsOf(const Minute &minute, const UserRegion &region)
{
    const qint64 seconds =
        beginning.daysTo(minute.date) * dayLength + minute.hour * hourLength + minute.minute * minuteLength;
    return momentsOf(static_cast<double>(seconds), region);
}

QDate dateAt(Instant moment, const UserRegion &region)
{
    const double days = std::floor(secondsAt(moment, region) / static_cast<double>(dayLength));
    return beginning.addDays(static_cast<qint64>(days));
}

} // namespace glimmet::WallClock
