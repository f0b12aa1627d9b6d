#include "platform/DateTimeText.h"

#include "platform/IcuDates.h"
#include "platform/WallClock.h"

#include <algorithm>
#include <memory>
#include <utility>

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
    return formatted(
        format, zoneOf(region.utcOffset(Instant::fromUnixSeconds(milliseconds / 1000))), milliseconds);
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

/// A date formatter, and what it was made for.
struct ClockText::Formatter {
    QByteArray locale;
    QString pattern;
    int utcOffset = 0;
    std::unique_ptr<icu::SimpleDateFormat> format; ///< none where ICU has none

    Formatter(QByteArray localeName, QStringView datePattern)
        : locale(std::move(localeName))
        , pattern(datePattern.toString())
    {
        UErrorCode status = U_ZERO_ERROR;
        format = std::make_unique<icu::SimpleDateFormat>(
            icu::UnicodeString(datePattern.utf16(), static_cast<int>(datePattern.size())),
            icu::Locale(locale.constData()), status);
        if (U_FAILURE(status))
            format.reset();
        else
            format->adoptTimeZone(zoneOf(utcOffset).release());
    }

    void setUtcOffset(int seconds)
    {
        if (seconds == utcOffset)
            return;
        utcOffset = seconds;
        format->adoptTimeZone(zoneOf(seconds).release());
    }
};

ClockText::ClockText(const UserRegion &region)
    : m_region(region)
{
}

ClockText::~ClockText() = default;

QString ClockText::at(Instant moment, QStringView pattern) const
{
    const QByteArray locale = m_region.localeName();
    if (!m_formatter || m_formatter->locale != locale || m_formatter->pattern != pattern)
        m_formatter = std::make_unique<Formatter>(locale, pattern);
    if (!m_formatter->format) {
        m_formatter.reset(); // The next second tries anew.
        return {};
    }
    m_formatter->setUtcOffset(m_region.utcOffset(moment));
    icu::UnicodeString text;
    m_formatter->format->format(moment.unixMilliseconds(), text);
    return toQString(text);
}

} // namespace glimmet
