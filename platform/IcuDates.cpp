#include "platform/IcuDates.h"

#include "platform/UserRegion.h"

#include <unicode/simpletz.h>

namespace glimmet {

icu::Locale gregorian(const QByteArray &localeName)
{
    icu::Locale locale(localeName.constData());
    UErrorCode status = U_ZERO_ERROR;
    locale.setKeywordValue("calendar", "gregorian", status);
    return locale;
}

/// Only the offset of this moment matters to a clock. The system's rules give it: they are newer than those
/// inside ICU and also serve zones without a name ("EST5EDT", a copied /etc/localtime).
std::unique_ptr<icu::TimeZone> zoneAt(Instant moment, const UserRegion &region)
{
    return std::make_unique<icu::SimpleTimeZone>(
        region.utcOffset(moment) * 1000, icu::UnicodeString(u"local"));
}

QString toQString(const icu::UnicodeString &text)
{
    return QString(reinterpret_cast<const QChar *>(text.getBuffer()), text.length());
}

} // namespace glimmet
