#pragma once

#include <QByteArray>
#include <QString>

#include <unicode/locid.h>
#include <unicode/timezone.h>

#include <memory>

namespace glimmet {

/// What the date texts share with each other; ICU's own types stay inside this folder.

/// The locale by the Gregorian calendar.
icu::Locale gregorian(const QByteArray &localeName);

/// A zone that is `utcOffset` seconds ahead of UTC all year. Only the offset of one moment matters to a
/// clock, and the system's rules give it: they are newer than those inside ICU and also serve zones without a
/// name ("EST5EDT", a copied /etc/localtime).
std::unique_ptr<icu::TimeZone> zoneOf(int utcOffset);

QString toQString(const icu::UnicodeString &text);

} // namespace glimmet
