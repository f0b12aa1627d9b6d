#pragma once

#include <QStringList>

namespace glimmet {

/// As many accounts as the program has, and named alike.
inline const QStringList accounts{ QStringLiteral("polar_api_key"), QStringLiteral("revenuecat_api_key"),
    QStringLiteral("revenuecat_project_id"), QStringLiteral("dodo_api_key"), QStringLiteral("stripe_api_key"),
    QStringLiteral("stripe_currency"), QStringLiteral("lemonsqueezy_api_key") };

} // namespace glimmet
