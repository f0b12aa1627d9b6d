#include "platform/IcuDates.h"

#include <unicode/simpletz.h>

namespace glimmet {

icu::Locale gregorian(const QByteArray &localeName)
{
    icu::Locale locale(localeName.constData());
    UErrorCode status = U_ZERO_ERROR;
    locale.setKeywordValue("calendar", "gregorian", status);
    return locale;
}

std::unique_ptr<icu::TimeZone> zoneOf(int utcOffset)
{
    return std::make_unique<icu::SimpleTimeZone>(utcOffset * 1000, icu::UnicodeString(u"local"));
}

QString toQString(const icu::UnicodeString &text)
{
    return QString(reinterpret_cast<const QChar *>(text.getBuffer()), text.length());
}

} // namespace glimmet
