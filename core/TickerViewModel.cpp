#include "core/TickerViewModel.h"

#include "platform/Clock.h"
#include "platform/ClockText.h"
#include "platform/RepeatingTimer.h"

#include <chrono>

namespace glimmet {

using namespace std::chrono_literals;

TickerViewModel::TickerViewModel(const TickerWorld &world, QObject *parent)
    : QObject(parent)
    , m_world(world)
    , m_credentials(world.keys)
{
    loadCredentials();
    loadCryptoSymbols();
    loadQuotes();
    loadDeadlines();
    start();
}

TickerViewModel::~TickerViewModel()
{
    stop();
}

void TickerViewModel::start()
{
    tick();
    m_timer = m_world.timers.repeating(1s, [this] { tick(); });
    startRevenueTimer();
    fetchAllCryptoPrices();
    startCryptoPriceTimer();
}

void TickerViewModel::stop()
{
    m_timer.reset();
    m_revenueTimer.reset();
    m_cryptoPriceTimer.reset();
}

void TickerViewModel::tick()
{
    handleQuoteRotation();
    handleCryptoRotation();
    handleDeadlineRotation();
    publish(m_currentDisplay, buildText(), &TickerViewModel::currentDisplayChanged);
    emit ticked();
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
        return quoteDisplay();
    case TickerMode::Custom:
        return m_customText.isEmpty() ? QStringLiteral("glimmet") : m_customText;
    case TickerMode::Revenue:
        return m_revenueLabel;
    case TickerMode::Crypto:
        return cryptoDisplay();
    case TickerMode::Deadline:
        return deadlineDisplay();
    }
    Q_UNREACHABLE();
}

QString TickerViewModel::spokenDisplay() const
{
    return m_mode == TickerMode::Clock ? formattedTime(false) : m_currentDisplay;
}

QString TickerViewModel::formattedTime(bool withSeconds) const
{
    const char16_t *pattern = withSeconds ? u"h:mm:ss a" : u"h:mm a";
    if (m_use24Hour)
        pattern = withSeconds ? u"HH:mm:ss" : u"HH:mm";
    return clockText(pattern, m_world.clock.now(), m_world.region);
}

void TickerViewModel::setMode(TickerMode mode)
{
    publish(m_mode, mode, &TickerViewModel::modeChanged);
}

void TickerViewModel::chooseMode(TickerMode mode)
{
    setMode(mode);
    if (mode == TickerMode::Revenue)
        fetchRevenue();
    if (mode == TickerMode::Crypto)
        fetchAllCryptoPrices();
}

void TickerViewModel::setCustomText(const QString &text)
{
    publish(m_customText, text, &TickerViewModel::customTextChanged);
}

void TickerViewModel::setShowSeconds(bool show)
{
    publish(m_showSeconds, show, &TickerViewModel::showSecondsChanged);
}

void TickerViewModel::setUse24Hour(bool use)
{
    publish(m_use24Hour, use, &TickerViewModel::use24HourChanged);
}

} // namespace glimmet
