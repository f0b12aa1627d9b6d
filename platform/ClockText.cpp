#include "platform/ClockText.h"

#include "platform/IcuDates.h"

#include <unicode/smpdtfmt.h>

namespace glimmet {

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
