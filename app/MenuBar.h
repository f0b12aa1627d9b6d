#pragma once

#include "app/MenuBarHost.h"
#include "platform/SingleShot.h"

#include <memory>
#include <vector>

namespace glimmet {

class SessionBus;
class SteadyClock;
class WaylandConnection;

/// Shows the ticker's text in the place that the desktop has for it: in the first host that is available.
/// The last resort is waited with for some seconds, so that it does not flash up at login or while a panel
/// restarts. Main thread.
class MenuBar final : public QObject {
    Q_OBJECT

public:
    using Hosts = std::vector<std::unique_ptr<MenuBarHost>>;

    /// `hosts` in order of preference; the last one is always available. `timers` outlives the bar.
    MenuBar(Hosts hosts, Timers &timers, QObject *parent = nullptr);

    /// Shows `text`; line breaks and control characters are cleaned away.
    void setText(const QString &text);
    void setMode(TickerMode mode);
    void setColorScheme(ColorScheme scheme);
    void setPanelOpen(bool isOpen);
    /// Where the panel drops down from without a click, in native pixels; none while that is not known.
    std::optional<QPoint> anchor() const;

signals:
    /// `anchor`: where the panel drops down from, in native pixels; none where that is not known. `isAtEdge`:
    /// whether that is on the edge that the panel hangs from.
    void clicked(std::optional<QPoint> anchor, bool isAtEdge);
    void pressedElsewhere();
    void openChosen(std::optional<QPoint> anchor);
    void quitChosen();
    /// Tells in words where the text is shown.
    void moved(const QString &place);

private:
    MenuBarHost &firstAvailable() const;
    const MenuBarHost &placeOf(const MenuBarHost &host) const;
    void handleClick(const MenuBarHost &host);
    void chooseHost();
    void show(MenuBarHost &host);

    Hosts m_hosts;
    MenuBarHost *m_shown = nullptr;
    SingleShot m_patience;
    QString m_rawText;
};

/// All that there are: a button of GNOME Shell's, an item in the desktop's own panel, a feed that a bar
/// reads, else a strip of our own. What it is given outlives them.
MenuBar::Hosts menuBarHosts(
    SessionBus &bus, Timers &timers, const SteadyClock &clock, WaylandConnection &wayland);

} // namespace glimmet
