#include "platform/ClockText.h"

#include <unicode/simpletz.h>
#include <unicode/smpdtfmt.h>

#include <memory>

namespace glimmet {
namespace {

/// Only the offset of this moment matters to a clock. The system's rules give it: they are newer than those
/// inside ICU and also serve zones without a name ("EST5EDT", a copied /etc/localtime).
std::unique_ptr<icu::TimeZone> zoneAt(Instant moment, const UserRegion &region)
{
    return std::make_unique<icu::SimpleTimeZone>(
        region.utcOffset(moment) * 1000, icu::UnicodeString(u"local"));
}

} // namespace

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
    return QString(reinterpret_cast<const QChar *>(text.getBuffer()), text.length());
}

} // namespace glimmet
