#pragma once

#include "app/ItemFace.h"
#include "app/MenuBarHost.h"
#include "platform/SingleShot.h"
#include "platform/SteadyClock.h"

#include <memory>

class QDBusServiceWatcher;

namespace glimmet {

class NotifierMenu;
class SessionBus;

/// Shows the text as a StatusNotifierItem in the desktop's own menu bar or panel. Registers anew whenever the
/// watcher or its host comes back.
class ItemHost final : public MenuBarHost {
    Q_OBJECT

public:
    /// What it is given outlives it.
    ItemHost(SessionBus &bus, Timers &timers, const SteadyClock &clock, QObject *parent = nullptr);
    ~ItemHost() override;

    /// True while a desktop shows items.
    bool isAvailable() const override { return hasHost() && m_isTextShown; }
    /// Also where a bar shows its symbol, and nothing of the text.
    bool isSeen() const override { return hasHost() && isWanted(); }
    QString place() const override { return QStringLiteral("an item"); }
    void setText(const QString &text) override;
    void setMode(TickerMode mode) override;
    void setColorScheme(ColorScheme scheme) override;
    void setPanelOpen(bool isOpen) override;
    /// The desktop shows what is registered by itself, unless the text is elsewhere.
    void setShown(bool shown) override;
    void setOutranked(bool isOutranked) override;
    std::optional<QPoint> anchor() const override { return m_anchor; }

private slots:
    void askForHost();

private:
    void handleConnected();
    void handleLost();
    void handleWatcher();
    void handleWatcherGone();
    void registerItem();
    void handleRead(bool isOnlyTheBeginning);
    void startOver();
    void setAvailable(bool available);
    void setOverlooked(bool isOverlooked);
    void setTextShown(bool isShown);
    void tellAvailability(bool before);
    void learnManner();
    void showOrHide();
    bool hasHost() const { return m_available && !m_isOverlooked; }
    bool isWanted() const;
    void handleClick(QPoint position);
    void noteAnchor(std::optional<QPoint> position);
    void handleEarlyClick(QPoint position);
    void handleMenuOpened();
    void closeMenu();
    void handleMenuClosed();
    void comeBack();

    SessionBus &m_bus;
    std::unique_ptr<StatusNotifierItem> m_item;
    std::unique_ptr<NotifierMenu> m_menu;
    ItemFace m_face;
    std::unique_ptr<QDBusServiceWatcher> m_watcherWatch;
    std::unique_ptr<QDBusServiceWatcher> m_feedWatch;
    SingleShot m_unseenTimer;
    SingleShot m_menuTimer;
    SingleShot m_clickTimer;
    Stopwatch m_sinceMenu;
    int m_registrations = 0; ///< since the item was last seen
    bool m_isAnnounced = false;
    bool m_isStartingOver = false;
    bool m_available = false; ///< a host is there, as the watcher tells
    bool m_isOverlooked = false; ///< it has not looked at the item in its time
    bool m_isTextShown = true; ///< in one way or another
    bool m_isShown = true;
    bool m_isOutranked = false;
    std::optional<QPoint> m_anchor;
};

} // namespace glimmet
