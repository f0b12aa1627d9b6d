#pragma once

#include "platform/Retries.h"
#include "platform/Rotation.h"
#include "prices/PriceSource.h"
#include "prices/PriceStatus.h"

#include <QHash>
#include <QObject>
#include <QStringList>

#include <functional>
#include <memory>

namespace glimmet {

class Clock;
class PreferencesStore;
class RepeatingTimer;
class Timers;

/// What the list of prices needs of the world. All of it outlives the list.
struct PriceListWorld {
    const Clock &clock;
    PreferencesStore &preferences;
    QString preferencesKey; ///< of the stored symbols
    Timers &timers;
    PriceSource *source = nullptr; ///< none: prices stay unknown
    std::function<bool()> isOnShow; ///< whether prices are what is shown now
};

/// The symbols whose prices are shown in turn, and their prices. They are asked for
///   - all of them where the timer says so, and where the list is set while prices are on show;
///   - one of them where it comes on show;
///   - again for a while after the machine slept, those that found no network.
/// Main thread.
class PriceList final : public QObject {
    Q_OBJECT

public:
    explicit PriceList(PriceListWorld world, QObject *parent = nullptr);
    ~PriceList() override;

    /// Takes over the stored symbols; where there are none, stores those that it begins with.
    void load();

    QStringList symbols() const { return m_symbols; }
    /// Stores the list, also an equal one, and begins with its first symbol.
    void setSymbols(const QStringList &symbols);
    /// The symbols that a text such as "btc, aapl" stands for, also those that recur.
    static QStringList symbolsIn(const QString &text);
    /// Appends the symbols in `text`, which commas separate, in upper case and without the blanks around
    /// them; what is empty or known is left out. Nothing happens where nothing is new.
    void add(const QString &text);
    /// Removes every entry that is equal to `symbol`; its price stays known.
    void remove(const QString &symbol);
    /// Ticks that a price stays.
    qint64 rotateInterval() const { return m_rotateInterval; }
    void setRotateInterval(qint64 seconds);
    QHash<QString, CryptoPrice> prices() const { return m_prices; }
    /// How asking goes, for each symbol that was ever answered for.
    QHash<QString, PriceStatus> statuses() const { return m_statuses; }
    qint64 currentIndex() const { return m_rotation.index(); }
    void setCurrentIndex(qint64 index);

    /// Asks for the price of every symbol in the list.
    void fetchAll();
    /// Asks again every five minutes, the first time in five minutes.
    void startTimer();
    /// Asks for all now and every five minutes, as after the machine slept: where the network is not there
    /// yet, it tries again.
    void startAnew();
    void stopTimer();

    /// Counts a second, if prices are on show.
    void tick();
    QString display() const;
    /// Whether the price on show was not there twice in a row, or came before the last two times that all
    /// were asked for.
    bool isStale() const;

signals:
    void symbolsChanged();
    void rotateIntervalChanged();
    void pricesChanged();
    void statusesChanged();
    void currentIndexChanged();

private:
    /// The list is not empty.
    QString symbolOnShow() const;
    void fetch(const QString &symbol);
    void take(const PriceResult &result, const QString &symbol, qint64 request);
    void keep(const CryptoPrice &price);
    void note(const QString &symbol, const PriceResult &result);
    void tryAgain();

    PriceListWorld m_world;
    QStringList m_symbols{ QStringLiteral("BTC-USD"), QStringLiteral("ETH-USD") };
    qint64 m_rotateInterval = 10;
    QHash<QString, CryptoPrice> m_prices;
    QHash<QString, PriceStatus> m_statuses;
    Rotation m_rotation;
    QHash<QString, LatestRequest> m_latest; ///< of each symbol
    std::unique_ptr<RepeatingTimer> m_timer;
    Retries m_retries;
};

} // namespace glimmet
