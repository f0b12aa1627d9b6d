#pragma once

#include "platform/Instant.h"

#include <QByteArray>
#include <QString>

#include <unicode/locid.h>
#include <unicode/timezone.h>

#include <memory>

namespace glimmet {

class UserRegion;

/// What the date texts share with each other; ICU's own types stay inside this folder.

/// The locale by the Gregorian calendar.
icu::Locale gregorian(const QByteArray &localeName);

/// The zone's offset at `moment`, as a zone.
std::unique_ptr<icu::TimeZone> zoneAt(Instant moment, const UserRegion &region);

QString toQString(const icu::UnicodeString &text);

} // namespace glimmet
