#pragma once

#include "platform/Instant.h"

#include <QStringView>

#include <optional>

namespace glimmet {

/// The moment that `text` names in the form of RFC 3339 ("2024-05-01T10:20:30.123456Z", "…+05:30"), read
/// strictly: upper-case T and Z, a date and a time that exist, with or without a fraction of any length.
/// Nothing otherwise.
std::optional<Instant> parseInternetDateTime(QStringView text);

} // namespace glimmet
