#include "app/MenuBar.h"

#include "app/FeedHost.h"
#include "app/ItemHost.h"
#include "app/LayerBackdrop.h"
#include "app/StripHost.h"
#include "app/StripLayer.h"
#include "app/StripWindow.h"
#include "app/TopBarHost.h"
#include "core/HostText.h"
#include "platform/desktop/BarColorsWatch.h"
#include "platform/desktop/X11.h"
#include "platform/wayland/WaylandConnection.h"

#include <algorithm>
#include <chrono>

namespace glimmet {

using namespace std::chrono_literals;

namespace {

std::unique_ptr<StripFace> makeStrip(WaylandConnection &wayland, Timers &timers, int inset)
{
    if (needsLayers(wayland) || (X11::isMissing() && wayland.offersLayers()))
        return std::make_unique<StripLayer>(wayland, timers, inset);
    // A window would stand where the compositor likes, and among those of the user's.
    if (X11::isMissing())
        return nullptr;
    return std::make_unique<StripWindow>(timers, inset);
}

} // namespace

MenuBar::Hosts menuBarHosts(
    SessionBus &bus, Timers &timers, const SteadyClock &clock, WaylandConnection &wayland)
{
    MenuBar::Hosts hosts;
    hosts.push_back(std::make_unique<TopBarHost>(bus, timers));
    hosts.push_back(std::make_unique<ItemHost>(bus, timers, clock));
    hosts.push_back(std::make_unique<FeedHost>(bus));
    hosts.push_back(std::make_unique<StripHost>(
        [&wayland, &timers](int inset) { return makeStrip(wayland, timers, inset); },
        [] { return std::make_unique<BarColorsWatch>(BarColorsWatch::defaultPath()); }));
    return hosts;
}

MenuBar::MenuBar(Hosts hosts, Timers &timers, QObject *parent)
    : QObject(parent)
    , m_hosts(std::move(hosts))
    , m_patience(timers, 5s, [this] { show(firstAvailable()); })
{
    for (const auto &host : m_hosts) {
        connect(host.get(), &MenuBarHost::availabilityChanged, this, &MenuBar::chooseHost);
        connect(host.get(), &MenuBarHost::clicked, this, [this, &host = *host] { handleClick(host); });
        connect(host.get(), &MenuBarHost::pressedElsewhere, this, &MenuBar::pressedElsewhere);
        connect(host.get(), &MenuBarHost::openChosen, this,
            [this, &host = *host] { emit openChosen(placeOf(host).anchor()); });
        connect(host.get(), &MenuBarHost::quitChosen, this, &MenuBar::quitChosen);
    }
    chooseHost();
}

void MenuBar::setText(const QString &text)
{
    if (text == m_rawText)
        return;
    m_rawText = text;
    const QString line = hasInk(text) ? hostText(text) : QStringLiteral("glimmet");
    for (const auto &host : m_hosts)
        host->setText(line);
}

void MenuBar::setMode(TickerMode mode)
{
    for (const auto &host : m_hosts)
        host->setMode(mode);
}

void MenuBar::setColorScheme(ColorScheme scheme)
{
    for (const auto &host : m_hosts)
        host->setColorScheme(scheme);
}

void MenuBar::setPanelOpen(bool isOpen)
{
    for (const auto &host : m_hosts)
        host->setPanelOpen(isOpen);
}

std::optional<QPoint> MenuBar::anchor() const
{
    return firstAvailable().anchor();
}

const MenuBarHost &MenuBar::placeOf(const MenuBarHost &host) const
{
    // A key of the desktop's may click what is not on the screen.
    return host.isSeen() ? host : firstAvailable();
}

void MenuBar::handleClick(const MenuBarHost &host)
{
    const MenuBarHost &place = placeOf(host);
    emit clicked(place.anchor(), place.knowsEdge());
}

MenuBarHost &MenuBar::firstAvailable() const
{
    const auto isAvailable = [](const auto &host) { return host->isAvailable(); };
    return **std::find_if(m_hosts.cbegin(), m_hosts.cend() - 1, isAvailable);
}

void MenuBar::chooseHost()
{
    MenuBarHost &host = firstAvailable();
    if (&host == m_hosts.back().get()) {
        m_patience.start();
        return;
    }
    m_patience.stop();
    show(host);
}

void MenuBar::show(MenuBarHost &host)
{
    if (m_shown == &host)
        return;
    m_shown = &host;
    bool isBehind = false;
    for (const auto &other : m_hosts) {
        other->setOutranked(isBehind);
        other->setShown(other.get() == &host);
        isBehind = isBehind || other.get() == &host;
    }
    emit moved(QStringLiteral("shown as ") + host.place());
}

} // namespace glimmet
