#include "core/TickerViewModel.h"

#include "core/PreferencesKeys.h"
#include "platform/Clock.h"
#include "platform/Publish.h"
#include "platform/RepeatingTimer.h"

#include <map>
#include <utility>

namespace glimmet {

TickerViewModel::TickerViewModel(const TickerWorld &world, QObject *parent)
    : QObject(parent)
    , m_world(world)
    , m_clockText(world.region)
    , m_spokenText(world.region)
    , m_quotes(world.preferences)
    , m_deadlines(world.preferences, world.clock)
    , m_prices({ world.clock, world.preferences, PreferencesKeys::cryptoSymbols, world.timers, world.prices,
          [this] { return m_mode == TickerMode::Crypto; } })
    , m_revenue({ world.clock, world.timers, world.revenue, world.keys,
          [this] { return m_mode == TickerMode::Revenue; } })
{
    forwardSignals();
    m_revenue.loadCredentials();
    m_prices.load();
    m_quotes.load();
    m_deadlines.load();
    start();
}

TickerViewModel::~TickerViewModel()
{
    stop();
}

void TickerViewModel::forwardSignals()
{
    using Ticker = TickerViewModel;
    const auto forward = [this](const auto &part, auto from, void (Ticker::*to)()) {
        connect(&part, from, this, to);
    };
    forward(m_quotes, &Quotes::customChanged, &Ticker::customQuotesChanged);
    forward(m_quotes, &Quotes::rotateIntervalChanged, &Ticker::quoteRotateIntervalChanged);
    forward(m_deadlines, &Deadlines::changed, &Ticker::deadlinesChanged);
    forward(m_prices, &PriceList::symbolsChanged, &Ticker::cryptoSymbolsChanged);
    forward(m_prices, &PriceList::rotateIntervalChanged, &Ticker::cryptoRotateIntervalChanged);
    forward(m_prices, &PriceList::pricesChanged, &Ticker::cryptoPricesChanged);
    forward(m_prices, &PriceList::statusesChanged, &Ticker::cryptoPriceStatusesChanged);
    forward(m_prices, &PriceList::currentIndexChanged, &Ticker::currentCryptoIndexChanged);
    forward(m_revenue, &RevenueReport::providerChanged, &Ticker::revenueProviderChanged);
    forward(m_revenue, &RevenueReport::metricChanged, &Ticker::revenueMetricChanged);
    forward(m_revenue, &RevenueReport::periodChanged, &Ticker::revenueModeChanged);
    forward(m_revenue, &RevenueReport::dodoCurrencyChanged, &Ticker::dodoCurrencyChanged);
    forward(m_revenue, &RevenueReport::labelChanged, &Ticker::revenueLabelChanged);
    forward(m_revenue, &RevenueReport::isFetchingChanged, &Ticker::isFetchingRevenueChanged);
    forward(m_revenue, &RevenueReport::lastErrorChanged, &Ticker::lastFetchErrorChanged);
    forward(m_revenue, &RevenueReport::problemsChanged, &Ticker::fetchProblemsChanged);
    connect(&m_revenue, &RevenueReport::credentialChanged, this, &Ticker::forwardCredential);
    connect(&m_revenue, &RevenueReport::credentialStatusChanged, this, &Ticker::credentialStatusChanged);
}

void TickerViewModel::forwardCredential(KeychainKey key)
{
    using Ticker = TickerViewModel;
    static const std::map<KeychainKey, void (Ticker::*)()> named{
        { KeychainKey::PolarAPIKey, &Ticker::polarAPIKeyChanged },
        { KeychainKey::RevenueCatAPIKey, &Ticker::revenueCatAPIKeyChanged },
        { KeychainKey::RevenueCatProjectID, &Ticker::revenueCatProjectIDChanged },
        { KeychainKey::DodoAPIKey, &Ticker::dodoAPIKeyChanged },
        { KeychainKey::StripeAPIKey, &Ticker::stripeAPIKeyChanged },
        { KeychainKey::StripeCurrency, &Ticker::stripeCurrencyChanged },
        { KeychainKey::LemonSqueezyAPIKey, &Ticker::lemonSqueezyAPIKeyChanged },
    };
    if (const auto found = named.find(key); found != named.cend())
        emit(this->*found->second)();
    emit credentialChanged(key);
}

void TickerViewModel::start()
{
    tick();
    m_lastReadings = clockReadings();
    m_timer = m_world.timers.everySecond([this] {
        refreshAfterTimeJump();
        tick();
    });
    startRevenueTimer();
    fetchAllCryptoPrices();
    startCryptoPriceTimer();
}

void TickerViewModel::stop()
{
    m_timer.reset();
    m_revenue.stopTimer();
    m_prices.stopTimer();
}

void TickerViewModel::tick()
{
    if (m_mode == TickerMode::Quote)
        m_quotes.tick();
    m_prices.tick();
    if (m_mode == TickerMode::Deadline)
        m_deadlines.tick();
    publish(*this, m_currentDisplay, buildText(), &TickerViewModel::currentDisplayChanged);
    followStaleness();
    emit ticked();
}

void TickerViewModel::followStaleness()
{
    publish(*this, m_isDisplayStale, isStale(), &TickerViewModel::isDisplayStaleChanged);
}

ClockReadings TickerViewModel::clockReadings() const
{
    return m_world.clockReadings ? m_world.clockReadings() : ClockReadings{};
}

void TickerViewModel::refreshAfterTimeJump()
{
    const ClockReadings before = std::exchange(m_lastReadings, clockReadings());
    if (!hasTimeJumped(before, m_lastReadings))
        return;
    m_revenue.startAnew();
    m_prices.startAnew();
}

Instant TickerViewModel::now() const
{
    return m_world.clock.now();
}

QString TickerViewModel::buildText() const
{
    switch (m_mode) {
    case TickerMode::Clock:
        return formattedTime(m_showSeconds);
    case TickerMode::Quote:
        return m_quotes.display();
    case TickerMode::Custom:
        return m_customText.isEmpty() ? QStringLiteral("glimmet") : m_customText;
    case TickerMode::Revenue:
        return m_revenue.label();
    case TickerMode::Crypto:
        return m_prices.display();
    case TickerMode::Deadline:
        return m_deadlines.display();
    }
    Q_UNREACHABLE();
}

bool TickerViewModel::isStale() const
{
    return (m_mode == TickerMode::Revenue && m_revenue.isStale())
        || (m_mode == TickerMode::Crypto && m_prices.isStale());
}

QString TickerViewModel::spokenDisplay() const
{
    return m_mode == TickerMode::Clock ? formattedTime(false) : m_currentDisplay;
}

QString TickerViewModel::formattedTime(bool withSeconds) const
{
    QStringView pattern = withSeconds ? u"h:mm:ss a" : u"h:mm a";
    if (m_use24Hour)
        pattern = withSeconds ? u"HH:mm:ss" : u"HH:mm";
    return (withSeconds == m_showSeconds ? m_clockText : m_spokenText).at(m_world.clock.now(), pattern);
}

void TickerViewModel::setMode(TickerMode mode)
{
    publish(*this, m_mode, mode, &TickerViewModel::modeChanged);
    followStaleness();
}

void TickerViewModel::chooseMode(TickerMode mode)
{
    // Before it is on show, so that what this finds is fetched for once.
    if (mode == TickerMode::Revenue)
        m_revenue.askToUnlock(KeyConsent::Act::ChoosingRevenue);
    setMode(mode);
    if (mode == TickerMode::Revenue)
        fetchRevenue();
    if (mode == TickerMode::Crypto)
        fetchAllCryptoPrices();
    // Where a credential is missing, the answer is there at once.
    followStaleness();
}

void TickerViewModel::chooseRevenueProvider(RevenueProvider provider)
{
    setRevenueProvider(provider);
    fetchRevenue();
}

void TickerViewModel::chooseRevenueMode(RevenueMode period)
{
    setRevenueMode(period);
    fetchRevenue();
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

void TickerViewModel::setCustomText(const QString &text)
{
    publish(*this, m_customText, text, &TickerViewModel::customTextChanged);
}

void TickerViewModel::setShowSeconds(bool show)
{
    publish(*this, m_showSeconds, show, &TickerViewModel::showSecondsChanged);
}

void TickerViewModel::setUse24Hour(bool use)
{
    publish(*this, m_use24Hour, use, &TickerViewModel::use24HourChanged);
}

} // namespace glimmet
