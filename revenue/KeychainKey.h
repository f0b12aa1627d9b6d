#pragma once

#include "platform/RawValue.h"

#include <array>

namespace glimmet {

/// What is kept in the key store. The currency is no secret, but belongs to the key beside it.
enum class KeychainKey {
    PolarAPIKey,
    RevenueCatAPIKey,
    RevenueCatProjectID,
    DodoAPIKey,
    StripeAPIKey,
    StripeCurrency,
    LemonSqueezyAPIKey,
};

template <>
inline constexpr std::array rawValues<KeychainKey> = {
    std::pair{ KeychainKey::PolarAPIKey, QStringView(u"polar_api_key") },
    std::pair{ KeychainKey::RevenueCatAPIKey, QStringView(u"revenuecat_api_key") },
    std::pair{ KeychainKey::RevenueCatProjectID, QStringView(u"revenuecat_project_id") },
    std::pair{ KeychainKey::DodoAPIKey, QStringView(u"dodo_api_key") },
    std::pair{ KeychainKey::StripeAPIKey, QStringView(u"stripe_api_key") },
    std::pair{ KeychainKey::StripeCurrency, QStringView(u"stripe_currency") },
    std::pair{ KeychainKey::LemonSqueezyAPIKey, QStringView(u"lemonsqueezy_api_key") },
};

/// The item's name in the store.
inline QString accountName(KeychainKey key)
{
    return rawValue(key);
}

} // namespace glimmet
