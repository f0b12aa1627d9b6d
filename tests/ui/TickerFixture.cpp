#include "tests/ui/TickerFixture.h"

#include "core/PreferencesKeys.h"

namespace glimmet {

void TickerFixture::advance(int seconds)
{
    m_world.timers.advance(std::chrono::seconds(seconds));
}

QStringList TickerFixture::storedQuotes() const
{
    return m_world.preferences.stringList(PreferencesKeys::quotes).value_or(QStringList{ u"absent"_s });
}

int TickerFixture::quoteSaves() const
{
    return static_cast<int>(m_world.preferences.writes().count(QString(PreferencesKeys::quotes)));
}

int TickerFixture::revenueFetches() const
{
    return static_cast<int>(m_world.revenue.count());
}

void TickerFixture::finishFetch(const QString &text)
{
    m_world.revenue.answer(m_world.revenue.count() - 1, text);
}

int TickerFixture::priceFetches() const
{
    return static_cast<int>(m_world.prices.asked().size());
}

QStringList TickerFixture::pricesAskedSince(int past) const
{
    return m_world.prices.asked().mid(past);
}

void TickerFixture::storePrice(
    const QString &symbol, double price, double change, const QList<double> &history)
{
    answerPrice(symbol, CryptoPrice{ symbol, price, change, history });
}

void TickerFixture::failPrice(const QString &symbol)
{
    answerPrice(symbol, {});
}

void TickerFixture::answerPrice(const QString &symbol, const std::optional<CryptoPrice> &price)
{
    const qsizetype request = m_world.prices.asked().lastIndexOf(symbol);
    if (request >= 0)
        m_world.prices.answer(static_cast<std::size_t>(request), price);
}

QStringList TickerFixture::storedSymbols() const
{
    return m_world.preferences.stringList(PreferencesKeys::cryptoSymbols)
        .value_or(QStringList{ u"absent"_s });
}

} // namespace glimmet
