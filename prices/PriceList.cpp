#include "prices/PriceList.h"

#include "platform/Clock.h"
#include "platform/PreferencesStore.h"
#include "platform/Publish.h"
#include "platform/RepeatingTimer.h"
#include "platform/Text.h"

#include <QPointer>
#include <QSet>

#include <utility>

namespace glimmet {

using namespace std::chrono_literals;

namespace {

constexpr std::chrono::seconds refreshInterval = 300s;

} // namespace

PriceList::PriceList(PriceListWorld world, QObject *parent)
    : QObject(parent)
    , m_world(std::move(world))
    , m_retries(m_world.timers, [this] { tryAgain(); })
{
}

PriceList::~PriceList() = default;

void PriceList::load()
{
    setSymbols(m_world.preferences.stringList(m_world.preferencesKey).value_or(m_symbols));
}

void PriceList::setSymbols(const QStringList &symbols)
{
    publish(*this, m_symbols, symbols, &PriceList::symbolsChanged);
    m_world.preferences.setStringList(m_world.preferencesKey, m_symbols);
    setCurrentIndex(0);
    if (m_world.isOnShow())
        fetchAll();
}

QStringList PriceList::symbolsIn(const QString &text)
{
    QStringList symbols;
    for (const QString &piece : text.split(u',')) {
        if (const QString symbol = trimmedBlanks(piece).toUpper(); !symbol.isEmpty())
            symbols.append(symbol);
    }
    return symbols;
}

void PriceList::add(const QString &text)
{
    QStringList symbols = m_symbols;
    QSet<QString> known(symbols.begin(), symbols.end());
    for (const QString &symbol : symbolsIn(text)) {
        if (known.contains(symbol))
            continue;
        known.insert(symbol);
        symbols.append(symbol);
    }
    if (symbols.size() > m_symbols.size())
        setSymbols(symbols);
}

void PriceList::remove(const QString &symbol)
{
    QStringList symbols = m_symbols;
    symbols.removeAll(symbol);
    setSymbols(symbols);
}

void PriceList::setRotateInterval(qint64 seconds)
{
    publish(*this, m_rotateInterval, seconds, &PriceList::rotateIntervalChanged);
}

void PriceList::setCurrentIndex(qint64 index)
{
    if (index == m_rotation.index())
        return;
    m_rotation.setIndex(index);
    emit currentIndexChanged();
}

void PriceList::fetchAll()
{
    // A copy: an answer may come at once and its receivers may change the list.
    const QStringList symbols = m_symbols;
    for (const QString &symbol : symbols)
        fetch(symbol);
}

void PriceList::fetch(const QString &symbol)
{
    if (m_world.source == nullptr)
        return;
    const qint64 request = m_latest[symbol].begin();
    m_world.source->fetchPrice(symbol, [list = QPointer(this), symbol, request](const PriceResult &result) {
        if (list)
            list->take(result, symbol, request);
    });
}

void PriceList::take(const PriceResult &result, const QString &symbol, qint64 request)
{
    const auto *failure = std::get_if<PriceFailure>(&result);
    m_latest[symbol].end(request, failure != nullptr && *failure == PriceFailure::NoNetwork);
    if (failure == nullptr)
        keep(std::get<CryptoPrice>(result));
    note(symbol, result);
}

void PriceList::note(const QString &symbol, const PriceResult &result)
{
    PriceStatus status = m_statuses.value(symbol);
    if (const auto *failure = std::get_if<PriceFailure>(&result))
        status.noteFailure(*failure);
    else
        status.notePrice(m_world.clock.now());
    if (m_statuses.value(symbol) == status)
        return;
    m_statuses.insert(symbol, status);
    emit statusesChanged();
}

void PriceList::tryAgain()
{
    // A copy: see fetchAll().
    const QStringList symbols = m_symbols;
    for (const QString &symbol : symbols) {
        if (m_latest.value(symbol).lackedNetwork())
            fetch(symbol);
    }
}

void PriceList::keep(const CryptoPrice &price)
{
    const auto known = m_prices.constFind(price.id);
    if (known != m_prices.constEnd() && *known == price)
        return;
    m_prices.insert(price.id, price);
    emit pricesChanged();
}

void PriceList::startTimer()
{
    m_timer.reset();
    m_timer = m_world.timers.repeating(refreshInterval, [this] { fetchAll(); });
}

void PriceList::startAnew()
{
    m_retries.start();
    fetchAll();
    startTimer();
}

void PriceList::stopTimer()
{
    m_timer.reset();
    m_retries.stop();
}

void PriceList::tick()
{
    if (!m_world.isOnShow() || m_symbols.isEmpty() || !m_rotation.tick(m_rotateInterval))
        return;
    setCurrentIndex(m_rotation.next(m_symbols.size()));
    if (!m_symbols.isEmpty()) // Who hears of the new index may change the list.
        fetch(symbolOnShow());
}

QString PriceList::symbolOnShow() const
{
    return m_symbols.at(m_rotation.among(m_symbols.size()));
}

QString PriceList::display() const
{
    if (m_symbols.isEmpty())
        return QStringLiteral("add symbol");
    const QString symbol = symbolOnShow();
    const auto price = m_prices.constFind(symbol);
    if (price != m_prices.constEnd())
        return price->menuBarString();
    return QStringLiteral("loading ") + symbol + u'…';
}

bool PriceList::isStale() const
{
    if (m_symbols.isEmpty())
        return false;
    const PriceStatus status = m_statuses.value(symbolOnShow());
    return status.trouble()
        || (status.cameAt() && isOlderThan(2 * refreshInterval, *status.cameAt(), m_world.clock.now()));
}

} // namespace glimmet
