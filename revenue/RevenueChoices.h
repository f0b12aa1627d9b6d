#pragma once

#include "platform/RawValue.h"

#include <QObject>

#include <array>

/// The choices behind the Revenue mode, and what is kept for its platforms. Each enumeration lists its cases
/// in display order.
namespace glimmet {

namespace RevenueProviders {
Q_NAMESPACE
/// The payment or subscription platform that is asked.
enum class RevenueProvider { Polar, RevenueCat, Dodo, Stripe, LemonSqueezy };
Q_ENUM_NS(RevenueProvider)
} // namespace RevenueProviders

namespace RevenueModes {
Q_NAMESPACE
/// The period that is summed.
enum class RevenueMode { Today, Week, Month, AllTime };
Q_ENUM_NS(RevenueMode)
} // namespace RevenueModes

namespace RevenueMetrics {
Q_NAMESPACE
/// The figure that is shown: the sum, the number of orders, their average or the largest one.
enum class RevenueMetric { Revenue, Orders, Avg, Top };
Q_ENUM_NS(RevenueMetric)
} // namespace RevenueMetrics

using RevenueMetrics::RevenueMetric;
using RevenueModes::RevenueMode;
using RevenueProviders::RevenueProvider;

template <>
inline constexpr std::array rawValues<RevenueProvider> = {
    std::pair{ RevenueProvider::Polar, QStringView(u"Polar") },
    std::pair{ RevenueProvider::RevenueCat, QStringView(u"RevenueCat") },
    std::pair{ RevenueProvider::Dodo, QStringView(u"Dodo") },
    std::pair{ RevenueProvider::Stripe, QStringView(u"Stripe") },
    std::pair{ RevenueProvider::LemonSqueezy, QStringView(u"Lemon Squeezy") },
};

template <>
inline constexpr std::array rawValues<RevenueMode> = {
    std::pair{ RevenueMode::Today, QStringView(u"Today") },
    std::pair{ RevenueMode::Week, QStringView(u"Week") },
    std::pair{ RevenueMode::Month, QStringView(u"Month") },
    std::pair{ RevenueMode::AllTime, QStringView(u"All Time") },
};

template <>
inline constexpr std::array rawValues<RevenueMetric> = {
    std::pair{ RevenueMetric::Revenue, QStringView(u"revenue") },
    std::pair{ RevenueMetric::Orders, QStringView(u"orders") },
    std::pair{ RevenueMetric::Avg, QStringView(u"avg") },
    std::pair{ RevenueMetric::Top, QStringView(u"top") },
};

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
