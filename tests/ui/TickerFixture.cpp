#include "tests/ui/TickerFixture.h"

#include "core/PreferencesKeys.h"

#include <QDateTime>

namespace glimmet {
namespace {

QStringList linesOf(const QList<Deadline> &deadlines)
{
    QStringList lines;
    for (const Deadline &deadline : deadlines) {
        const auto milliseconds = static_cast<qint64>(deadline.date.unixMilliseconds());
        const QDateTime date = QDateTime::fromMSecsSinceEpoch(milliseconds).toUTC();
        lines.append(deadline.title + u' ' + date.toString(Qt::ISODate));
    }
    return lines;
}

} // namespace

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
    answerPrice(symbol, PriceFailure::Unreadable);
}

void TickerFixture::missPrice(const QString &symbol)
{
    answerPrice(symbol, PriceFailure::NotFound);
}

void TickerFixture::answerPrice(const QString &symbol, const PriceResult &result)
{
    const qsizetype request = m_world.prices.asked().lastIndexOf(symbol);
    if (request >= 0)
        m_world.prices.answer(static_cast<std::size_t>(request), result);
}

QStringList TickerFixture::storedSymbols() const
{
    return m_world.preferences.stringList(PreferencesKeys::cryptoSymbols)
        .value_or(QStringList{ u"absent"_s });
}

void TickerFixture::setLocale(const QString &name)
{
    m_world.region.setLocale(name.toLatin1());
}

void TickerFixture::setZone(const QString &name)
{
    m_world.region.setZone(name.toLatin1());
}

void TickerFixture::setNow(const QString &iso)
{
    m_world.clock.set(instantAt(iso));
}

void TickerFixture::addDeadline(const QString &title, double seconds)
{
    m_ticker.addDeadline(m_world.deadline(title, seconds));
}

void TickerFixture::setDeadlines(const QStringList &titles)
{
    QList<Deadline> deadlines;
    for (const QString &title : titles)
        deadlines.append(m_world.deadline(title, 60 * static_cast<double>(deadlines.size() + 1)));
    m_ticker.setDeadlines(deadlines);
}

QStringList TickerFixture::deadlines() const
{
    return linesOf(m_ticker.deadlines());
}

QStringList TickerFixture::storedDeadlines() const
{
    const auto stored = m_world.preferences.data(PreferencesKeys::deadlines);
    if (!stored)
        return { u"absent"_s };
    return linesOf(deadlinesFromJson(*stored).value_or(QList<Deadline>()));
}

int TickerFixture::deadlineSaves() const
{
    return static_cast<int>(m_world.preferences.writes().count(QString(PreferencesKeys::deadlines)));
}

QStringList TickerFixture::keySaves() const
{
    return m_world.keys.saves() + m_lockedWorld.keys.saves();
}

void TickerFixture::forgetKeySaves()
{
    m_world.keys.forgetCalls();
    m_lockedWorld.keys.forgetCalls();
}

QString TickerFixture::storedKey(const QString &item)
{
    const QHash<QString, QByteArray> &items = m_world.keys.items();
    return items.contains(item) ? QString::fromUtf8(items.value(item)) : u"absent"_s;
}

TickerViewModel *TickerFixture::tickerWithoutKeys()
{
    m_lockedWorld.keys.lock();
    // With a parent: QML would take an object without one for its own.
    m_tickerWithoutKeys = std::make_unique<TickerViewModel>(m_lockedWorld.forTicker(), this);
    return m_tickerWithoutKeys.get();
}

void TickerFixture::keyArrives(const QString &item, const QString &value)
{
    m_lockedWorld.keys.items().insert(item, value.toUtf8());
    m_lockedWorld.keys.unlock();
}

void TickerFixture::setLogin(const QString &state)
{
    m_loginItem.current = state == u"on"_s ? LoginItemStatus::Enabled
        : state == u"off"_s                ? LoginItemStatus::NotRegistered
                                           : LoginItemStatus::RequiresApproval;
}

void TickerFixture::refuseLogin(const QString &reason)
{
    m_loginItem.failure = reason;
}

QStringList TickerFixture::loginRequests() const
{
    return m_loginItem.asked;
}

void TickerFixture::setTopBar(const QString &state)
{
    m_topBar.offered = state != u"none"_s;
    m_topBar.current = { state == u"on"_s, state != u"after login"_s };
}

void TickerFixture::refuseTopBar(const QString &reason)
{
    m_topBar.failure = reason;
}

QStringList TickerFixture::topBarRequests() const
{
    return m_topBar.asked;
}

QStringList TickerFixture::reported() const
{
    return m_reported;
}

} // namespace glimmet
