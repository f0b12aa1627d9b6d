#include "core/TickerViewModel.h"
#include "platform/RepeatingTimer.h"
#include "platform/Text.h"
#include "revenue/RevenueFetcher.h"

#include <QPointer>

/// The revenue choices of the TickerViewModel and the fetch that they ask for.
namespace glimmet {

using namespace std::chrono_literals;

namespace {

/// What the user has still to enter, as the text that asks for it. Polar and RevenueCat say so themselves.
QString missingInput(const RevenueQuery &query)
{
    const bool isPaged =
        query.provider != RevenueProvider::Polar && query.provider != RevenueProvider::RevenueCat;
    const bool hasCurrency =
        query.provider == RevenueProvider::Dodo || query.provider == RevenueProvider::Stripe;
    if (isPaged && query.apiKey.isBlank())
        return QStringLiteral("add api key");
    if (hasCurrency && query.currency.isEmpty())
        return QStringLiteral("set currency");
    return {};
}

} // namespace

RevenueQuery TickerViewModel::revenueQuery() const
{
    RevenueQuery query;
    query.provider = m_revenueProvider;
    query.period = m_revenueMode;
    query.metric = m_revenueMetric;
    switch (m_revenueProvider) {
    case RevenueProvider::Polar:
        query.apiKey = ApiKey(m_polarAPIKey);
        break;
    case RevenueProvider::RevenueCat:
        query.apiKey = ApiKey(m_revenueCatAPIKey);
        query.projectID = m_revenueCatProjectID;
        break;
    case RevenueProvider::Dodo:
        query.apiKey = ApiKey(m_dodoAPIKey);
        query.currency = trimmedBlanks(m_dodoCurrency).toUpper();
        break;
    case RevenueProvider::Stripe:
        query.apiKey = ApiKey(m_stripeAPIKey);
        query.currency = trimmedBlanks(m_stripeCurrency).toUpper().toLower();
        break;
    case RevenueProvider::LemonSqueezy:
        query.apiKey = ApiKey(m_lemonSqueezyAPIKey);
        break;
    }
    return query;
}

void TickerViewModel::fetchRevenue()
{
    if (m_world.revenue == nullptr)
        return;
    publish(m_isFetchingRevenue, true, &TickerViewModel::isFetchingRevenueChanged);
    publish(m_lastFetchError, std::optional<QString>(), &TickerViewModel::lastFetchErrorChanged);
    const RevenueQuery query = revenueQuery();
    if (const QString missing = missingInput(query); !missing.isEmpty())
        return handleRevenueResult(missing);
    m_world.revenue->fetch(query, [ticker = QPointer(this)](const QString &text) {
        if (ticker)
            ticker->handleRevenueResult(text);
    });
}

void TickerViewModel::handleRevenueResult(const QString &text)
{
    publish(m_isFetchingRevenue, false, &TickerViewModel::isFetchingRevenueChanged);
    publish(m_revenueLabel, text, &TickerViewModel::revenueLabelChanged);
    if (text.startsWith(u'⚠'))
        publish(m_lastFetchError, std::optional(text), &TickerViewModel::lastFetchErrorChanged);
}

void TickerViewModel::startRevenueTimer()
{
    fetchRevenue();
    m_revenueTimer.reset();
    m_revenueTimer = m_world.timers.repeating(300s, [this] {
        settleCredentials();
        fetchRevenue();
    });
}

void TickerViewModel::fetchRevenueInRevenueMode()
{
    if (m_mode == TickerMode::Revenue)
        fetchRevenue();
}

void TickerViewModel::setRevenueProvider(RevenueProvider provider)
{
    publish(m_revenueProvider, provider, &TickerViewModel::revenueProviderChanged);
}

void TickerViewModel::chooseRevenueProvider(RevenueProvider provider)
{
    setRevenueProvider(provider);
    fetchRevenue();
}

void TickerViewModel::setRevenueMetric(RevenueMetric metric)
{
    publish(m_revenueMetric, metric, &TickerViewModel::revenueMetricChanged);
    fetchRevenueInRevenueMode();
}

void TickerViewModel::setRevenueMode(RevenueMode period)
{
    publish(m_revenueMode, period, &TickerViewModel::revenueModeChanged);
    fetchRevenueInRevenueMode();
}

void TickerViewModel::chooseRevenueMode(RevenueMode period)
{
    setRevenueMode(period);
    fetchRevenue();
}

void TickerViewModel::setDodoCurrency(const QString &currency)
{
    publish(m_dodoCurrency, currency, &TickerViewModel::dodoCurrencyChanged);
    fetchRevenueInRevenueMode();
}

void TickerViewModel::chooseDodoCurrency(const QString &currency)
{
    setDodoCurrency(currency);
    fetchRevenue();
}

void TickerViewModel::chooseStripeCurrency(const QString &currency)
{
    setStripeCurrency(currency);
    fetchRevenue();
}

} // namespace glimmet
