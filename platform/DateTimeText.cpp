#include "platform/DateTimeText.h"

#include "platform/IcuDates.h"
#include "platform/WallClock.h"

#include <algorithm>
#include <memory>

#include <unicode/datefmt.h>
#include <unicode/smpdtfmt.h>

namespace glimmet {
namespace {

using Format = std::unique_ptr<icu::DateFormat>;

constexpr double dayLength = 86400;
// As far as ICU's calendar reaches, in milliseconds to either side of 1970.
constexpr double furthest = 8.64e15;

QString formatted(const Format &format, std::unique_ptr<icu::TimeZone> zone, double unixMilliseconds)
{
    if (!format)
        return {};
    format->adoptTimeZone(zone.release());
    icu::UnicodeString text;
    format->format(std::clamp(unixMilliseconds, -furthest, furthest), text);
    return toQString(text);
}

/// The day by itself, without a zone that could move it.
QString formatted(const Format &format, QDate date)
{
    const auto days = static_cast<double>(QDate(1970, 1, 1).daysTo(date));
    return formatted(format, std::unique_ptr<icu::TimeZone>(icu::TimeZone::createTimeZone(u"UTC")),
        days * dayLength * 1000);
}

/// The moment as the user's wall clock shows it.
QString formatted(const Format &format, Instant moment, const UserRegion &region)
{
    const double milliseconds = std::clamp(moment.unixMilliseconds(), -furthest, furthest);
    return formatted(format, zoneAt(Instant::fromUnixSeconds(milliseconds / 1000), region), milliseconds);
}

} // namespace

QString mediumDateTimeText(Instant moment, const UserRegion &region)
{
    return formatted(Format(icu::DateFormat::createDateTimeInstance(
                         icu::DateFormat::kMedium, icu::DateFormat::kShort, gregorian(region.localeName()))),
        moment, region);
}

QString recentTimeText(Instant moment, Instant now, const UserRegion &region)
{
    if (WallClock::dateAt(moment, region) != WallClock::dateAt(now, region))
        return mediumDateTimeText(moment, region);
    return formatted(
        Format(icu::DateFormat::createTimeInstance(icu::DateFormat::kShort, gregorian(region.localeName()))),
        moment, region);
}

QString fullDateText(QDate date, const QByteArray &locale)
{
    return formatted(
        Format(icu::DateFormat::createDateInstance(icu::DateFormat::kFull, gregorian(locale))), date);
}

QString monthText(QDate date, const QByteArray &locale)
{
    UErrorCode status = U_ZERO_ERROR;
    Format format(icu::DateFormat::createInstanceForSkeleton(u"yMMMM", gregorian(locale), status));
    if (U_FAILURE(status))
        return {};
    return formatted(format, date);
}

QString clockText(const char16_t *pattern, Instant moment, const UserRegion &region)
{
    UErrorCode status = U_ZERO_ERROR;
    icu::SimpleDateFormat format(
        icu::UnicodeString(pattern), icu::Locale(region.localeName().constData()), status);
    if (U_FAILURE(status))
        return {};
    format.adoptTimeZone(zoneAt(moment, region).release());
    icu::UnicodeString text;
    format.format(moment.unixMilliseconds(), text);
    return toQString(text);
}

} // namespace glimmet
