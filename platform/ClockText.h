#pragma once

#include "platform/Instant.h"
#include "platform/UserRegion.h"

#include <QString>

namespace glimmet {

/// The moment as the user's wall clock shows it, by a Unicode date pattern
/// (https://unicode.org/reports/tr35/tr35-dates.html#Date_Format_Patterns), with the locale's digits and
/// AM/PM markers. The locale and the time zone are asked afresh at every call.
QString clockText(const char16_t *pattern, Instant moment, const UserRegion &region);

} // namespace glimmet
