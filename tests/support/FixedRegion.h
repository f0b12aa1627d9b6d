#pragma once

#include "platform/UserRegion.h"

#include <QTimeZone>

namespace glimmet {

/// A region that a test chooses: an ICU locale name and an IANA time zone.
class FixedRegion final : public UserRegion {
public:
    FixedRegion(QByteArray locale, const QByteArray &zone);

    QByteArray localeName() const override { return m_locale; }
    int utcOffset(Instant moment) const override;

    void setLocale(const QByteArray &locale) { m_locale = locale; }
    void setZone(const QByteArray &zone);

private:
    QByteArray m_locale;
    QTimeZone m_zone;
};

/// The moment of an ISO 8601 text such as "2026-03-08T06:59:59Z".
Instant instantAt(const QString &iso);

} // namespace glimmet
