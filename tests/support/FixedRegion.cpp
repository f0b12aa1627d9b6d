#include "tests/support/FixedRegion.h"

#include "platform/Fatal.h"

#include <QDateTime>

#include <cmath>

namespace glimmet {

FixedRegion::FixedRegion(QByteArray locale, const QByteArray &zone)
    : m_locale(std::move(locale))
{
    setZone(zone);
}

int FixedRegion::utcOffset(Instant moment) const
{
    const auto milliseconds = static_cast<qint64>(std::floor(moment.unixMilliseconds()));
    return m_zone.offsetFromUtc(QDateTime::fromMSecsSinceEpoch(milliseconds));
}

void FixedRegion::setZone(const QByteArray &zone)
{
    m_zone = QTimeZone(zone);
    if (!m_zone.isValid())
        fatal("the test names an unknown time zone (is tzdata installed?)");
}

Instant instantAt(const QString &iso)
{
    const QDateTime moment = QDateTime::fromString(iso, Qt::ISODateWithMs);
    if (!moment.isValid())
        fatal("the test names an unreadable moment");
    return Instant::fromUnixSeconds(static_cast<double>(moment.toMSecsSinceEpoch()) / 1000.0);
}

} // namespace glimmet
