#include "core/PreferencesKeys.h"
#include "core/TickerViewModel.h"
#include "platform/CheckedInteger.h"
#include "platform/PreferencesStore.h"
#include "platform/RepeatingTimer.h"
#include "platform/Text.h"
#include "prices/PriceSource.h"

#include <QPointer>
#include <QSet>

/// The prices of the TickerViewModel and their rotation.
namespace glimmet {

using namespace std::chrono_literals;

QString TickerViewModel::symbolOnShow() const
{
    return m_cryptoSymbols.at(wrapped(m_currentCryptoIndex, m_cryptoSymbols.size()));
}

QString TickerViewModel::cryptoDisplay() const
{
    if (m_cryptoSymbols.isEmpty())
        return QStringLiteral("add symbol");
    const QString symbol = symbolOnShow();
    const auto price = m_cryptoPrices.constFind(symbol);
    if (price != m_cryptoPrices.constEnd())
        return price->menuBarString();
    return QStringLiteral("loading ") + symbol + u'…';
}

void TickerViewModel::handleCryptoRotation()
{
    if (m_mode != TickerMode::Crypto || m_cryptoSymbols.isEmpty())
        return;
    m_cryptoRotateCount = checkedSum(m_cryptoRotateCount, 1);
    if (m_cryptoRotateCount < m_cryptoRotateInterval)
        return;
    m_cryptoRotateCount = 0;
    const qsizetype count = m_cryptoSymbols.size();
    if (count >= 2)
        setCurrentCryptoIndex(wrapped(checkedSum(m_currentCryptoIndex, 1), count));
    if (!m_cryptoSymbols.isEmpty()) // Who hears of the new index may change the list.
        fetchPrice(symbolOnShow());
}

void TickerViewModel::setCryptoSymbols(const QStringList &symbols)
{
    publish(m_cryptoSymbols, symbols, &TickerViewModel::cryptoSymbolsChanged);
    m_world.preferences.setStringList(PreferencesKeys::cryptoSymbols, m_cryptoSymbols);
    setCurrentCryptoIndex(0);
    if (m_mode == TickerMode::Crypto)
        fetchAllCryptoPrices();
}

void TickerViewModel::addCryptoSymbol(const QString &text)
{
    QStringList symbols = m_cryptoSymbols;
    QSet<QString> known(symbols.begin(), symbols.end());
    known.insert(QString());
    for (const QString &piece : text.split(u',')) {
        const QString symbol = trimmedBlanks(piece).toUpper();
        if (known.contains(symbol))
            continue;
        known.insert(symbol);
        symbols.append(symbol);
    }
    if (symbols.size() > m_cryptoSymbols.size())
        setCryptoSymbols(symbols);
}

void TickerViewModel::removeCryptoSymbol(const QString &symbol)
{
    QStringList symbols = m_cryptoSymbols;
    symbols.removeAll(symbol);
    setCryptoSymbols(symbols);
}

void TickerViewModel::setCryptoRotateInterval(qint64 seconds)
{
    publish(m_cryptoRotateInterval, seconds, &TickerViewModel::cryptoRotateIntervalChanged);
}

void TickerViewModel::setCurrentCryptoIndex(qint64 index)
{
    publish(m_currentCryptoIndex, index, &TickerViewModel::currentCryptoIndexChanged);
}

void TickerViewModel::loadCryptoSymbols()
{
    setCryptoSymbols(
        m_world.preferences.stringList(PreferencesKeys::cryptoSymbols).value_or(m_cryptoSymbols));
}

void TickerViewModel::fetchAllCryptoPrices()
{
    // A copy: an answer may come at once and its receivers may change the list.
    const QStringList symbols = m_cryptoSymbols;
    for (const QString &symbol : symbols)
        fetchPrice(symbol);
}

void TickerViewModel::fetchPrice(const QString &symbol)
{
    if (m_world.prices == nullptr)
        return;
    m_world.prices->fetchPrice(symbol, [ticker = QPointer(this)](const std::optional<CryptoPrice> &price) {
        if (ticker && price)
            ticker->keepPrice(*price);
    });
}

void TickerViewModel::keepPrice(const CryptoPrice &price)
{
    const auto known = m_cryptoPrices.constFind(price.id);
    if (known != m_cryptoPrices.constEnd() && *known == price)
        return;
    m_cryptoPrices.insert(price.id, price);
    emit cryptoPricesChanged();
}

void TickerViewModel::startCryptoPriceTimer()
{
    m_cryptoPriceTimer.reset();
    m_cryptoPriceTimer = m_world.timers.repeating(300s, [this] { fetchAllCryptoPrices(); });
}

} // namespace glimmet
