#pragma once

#include "core/TickerViewModel.h"
#include "tests/support/MemoryLoginItem.h"
#include "tests/support/MemoryShellExtension.h"
#include "tests/support/TestWorld.h"
#include "ui/panel/PanelHost.h"

#include <QObject>

#include <memory>

namespace glimmet {

/// A real ticker in a world that a QML test holds in its hand.
class TickerFixture : public QObject {
    Q_OBJECT
    Q_PROPERTY(glimmet::TickerViewModel *ticker READ ticker CONSTANT)
    Q_PROPERTY(glimmet::PanelHost *host READ host CONSTANT)
    Q_PROPERTY(glimmet::PanelHost *unversionedHost READ unversionedHost CONSTANT)

public:
    TickerViewModel *ticker() { return &m_ticker; }
    PanelHost *host() { return &m_host; }
    PanelHost *unversionedHost() { return &m_unversionedHost; }

    /// Lets `seconds` pass.
    Q_INVOKABLE void advance(int seconds);
    /// The quotes as they are stored; an absent list reads as ["absent"].
    Q_INVOKABLE QStringList storedQuotes() const;
    /// How often the quotes were stored.
    Q_INVOKABLE int quoteSaves() const;
    Q_INVOKABLE int revenueFetches() const;
    /// Answers the last fetch.
    Q_INVOKABLE void finishFetch(const QString &text);
    Q_INVOKABLE int priceFetches() const;
    /// The symbols asked for since the first `past` requests, in order.
    Q_INVOKABLE QStringList pricesAskedSince(int past) const;
    /// Answers the last request for the symbol, if there was one.
    Q_INVOKABLE void storePrice(
        const QString &symbol, double price, double change, const QList<double> &history);
    /// Lets the last request for the symbol fail.
    Q_INVOKABLE void failPrice(const QString &symbol);
    /// The same because the service knows no such symbol.
    Q_INVOKABLE void missPrice(const QString &symbol);
    /// The symbols as they are stored; an absent list reads as ["absent"].
    Q_INVOKABLE QStringList storedSymbols() const;

    Q_INVOKABLE void setLocale(const QString &name);
    Q_INVOKABLE void setZone(const QString &name);
    /// Moves the clock without a tick.
    Q_INVOKABLE void setNow(const QString &iso);
    /// Adds a deadline so many seconds from now.
    Q_INVOKABLE void addDeadline(const QString &title, double seconds);
    /// Has the ticker have these deadlines, a minute apart, the first one a minute from now.
    Q_INVOKABLE void setDeadlines(const QStringList &titles);
    /// The ticker's deadlines, as "title 2026-05-05T08:05:07Z".
    Q_INVOKABLE QStringList deadlines() const;
    /// The same as they are stored; ["absent"] where nothing is.
    Q_INVOKABLE QStringList storedDeadlines() const;
    Q_INVOKABLE int deadlineSaves() const;
    /// The names of the key store's items, once for each time that one was saved.
    Q_INVOKABLE QStringList keySaves() const;
    Q_INVOKABLE void forgetKeySaves();
    /// An item of the key store; an absent one reads as "absent".
    Q_INVOKABLE QString storedKey(const QString &item);
    /// Another ticker, which cannot read the key store until `keyArrives`.
    Q_INVOKABLE glimmet::TickerViewModel *tickerWithoutKeys();
    /// The key store can be read now, and this is in it.
    Q_INVOKABLE void keyArrives(const QString &item, const QString &value);

    /// Whether the program starts at login: "on", "off", or "disabled" elsewhere by the user.
    Q_INVOKABLE void setLogin(const QString &state);
    /// Lets the system refuse what it is asked next.
    Q_INVOKABLE void refuseLogin(const QString &reason);
    /// "register" and "unregister", in the order in which the system was asked.
    Q_INVOKABLE QStringList loginRequests() const;
    /// How the shell's extension stands: "on", "off", or off until "after login"; "none" where there is no
    /// such shell.
    Q_INVOKABLE void setTopBar(const QString &state);
    /// Lets the shell refuse what it is asked next.
    Q_INVOKABLE void refuseTopBar(const QString &reason);
    /// "enable" and "disable", in the order in which the shell was asked.
    Q_INVOKABLE QStringList topBarRequests() const;
    /// The lines that were reported.
    Q_INVOKABLE QStringList reported() const;

private:
    void answerPrice(const QString &symbol, const PriceResult &result);

    TestWorld m_world;
    TickerViewModel m_ticker{ m_world.forTicker() };
    TestWorld m_lockedWorld; ///< with a key store of its own, as each program has one
    std::unique_ptr<TickerViewModel> m_tickerWithoutKeys;
    PanelServices services()
    {
        return { m_loginItem, [] {}, [this](const QString &line) { m_reported.append(line); }, &m_topBar };
    }

    MemoryLoginItem m_loginItem;
    MemoryShellExtension m_topBar;
    QStringList m_reported;
    PanelHost m_host{ QStringLiteral("1.2"), services() };
    PanelHost m_unversionedHost{ QString(), services() };
};

} // namespace glimmet
