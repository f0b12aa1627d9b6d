#include "app/ItemHost.h"

#include "app/FeedHost.h"
#include "app/ItemManner.h"
#include "platform/ProgramName.h"
#include "platform/bus/BusCalls.h"
#include "platform/bus/BusProperties.h"
#include "platform/bus/SessionBus.h"
#include "platform/desktop/CurrentDesktop.h"
#include "platform/desktop/NotifierMenu.h"
#include "platform/desktop/StatusNotifierItem.h"
#include "platform/desktop/X11.h"

#include <QCoreApplication>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusPendingReply>
#include <QDBusReply>
#include <QDBusServiceWatcher>
#include <QFile>

#include <chrono>

namespace glimmet {
namespace {

using namespace std::chrono_literals;

const QString watcherService = QStringLiteral("org.kde.StatusNotifierWatcher");
const QString watcherPath = QStringLiteral("/StatusNotifierWatcher");

const NotifierMenu::Words menuWords{ QStringLiteral("Open glimmet"), QStringLiteral("Quit") };

/// Now and then a host takes a registration and never shows the item. The same name again does not help it,
/// nor a further name of the same connection; a new participant of the bus does.
constexpr auto unseenPatience = 3s;
constexpr int mostRegistrations = 4;
/// The panel opens once the host has closed its menu, since that keeps the keyboard till then. A host that is
/// slow with it is not waited for longer than this.
constexpr auto clickPatience = 1s;
/// A host that reads the item only after it is back leaves its menu open, so this is for those that never
/// tell.
constexpr auto menuPatience = 5s;
/// Between a press, which opens the menu, and its release, which activates.
constexpr auto sameClickTime = 1s;

/// The file name of the program that owns a name on the bus, empty where that is not known.
QByteArray programOf(const SessionBus &bus, const QString &name)
{
    const QDBusReply<uint> process = bus.connection().interface()->servicePid(name);
    QFile file(QStringLiteral("/proc/%1/comm").arg(process.value()));
    return process.isValid() && file.open(QIODevice::ReadOnly) ? file.readAll().trimmed() : QByteArray();
}

QDBusMessage watcherCall(const QString &interface, const QString &method, const QVariantList &arguments)
{
    QDBusMessage call = QDBusMessage::createMethodCall(watcherService, watcherPath, interface, method);
    call.setArguments(arguments);
    call.setAutoStartService(false);
    return call;
}

} // namespace

ItemHost::ItemHost(SessionBus &bus, Timers &timers, const SteadyClock &clock, QObject *parent)
    : MenuBarHost(parent)
    , m_bus(bus)
    , m_item(std::make_unique<StatusNotifierItem>(clock))
    , m_menu(std::make_unique<NotifierMenu>(menuWords))
    , m_face(*m_item, timers)
    , m_unseenTimer(timers, unseenPatience, [this] { startOver(); })
    , m_menuTimer(timers, menuPatience, [this] { comeBack(); })
    , m_clickTimer(timers, clickPatience, [this] { emit clicked(); })
    , m_sinceMenu(clock)
{
    connect(m_item.get(), &StatusNotifierItem::wasRead, this, [this] { handleRead(m_face.showsMenu()); });
    connect(m_menu.get(), &NotifierMenu::wasRead, this, [this] { handleRead(false); });
    connect(m_item.get(), &StatusNotifierItem::activated, this, &ItemHost::handleClick);
    connect(m_item.get(), &StatusNotifierItem::activatedBesideMenu, this, &ItemHost::handleEarlyClick);
    connect(m_menu.get(), &NotifierMenu::opened, this, &ItemHost::handleMenuOpened);
    connect(m_menu.get(), &NotifierMenu::asked, this, [this] {
        if (!m_face.showsMenu())
            noteAnchor(m_anchor);
    });
    connect(m_menu.get(), &NotifierMenu::closed, this, &ItemHost::handleMenuClosed);
    connect(m_menu.get(), &NotifierMenu::openChosen, this, &ItemHost::openChosen);
    connect(m_menu.get(), &NotifierMenu::quitChosen, this, &ItemHost::quitChosen);
    connect(&m_bus, &SessionBus::connected, this, &ItemHost::handleConnected);
    connect(&m_bus, &SessionBus::lost, this, &ItemHost::handleLost);
    if (m_bus.isConnected())
        handleConnected();
}

ItemHost::~ItemHost() = default;

void ItemHost::setText(const QString &text)
{
    m_face.setText(text);
}

void ItemHost::setMode(TickerMode mode)
{
    m_face.setMode(mode);
}

void ItemHost::setColorScheme(ColorScheme scheme)
{
    m_face.setColorScheme(scheme);
}

void ItemHost::setPanelOpen(bool isOpen)
{
    m_face.setCovered(ItemFace::Cover::Panel, isOpen);
}

void ItemHost::setShown(bool shown)
{
    if (shown == m_isShown)
        return;
    m_isShown = shown;
    showOrHide();
}

void ItemHost::setOutranked(bool isOutranked)
{
    if (isOutranked == m_isOutranked)
        return;
    m_isOutranked = isOutranked;
    showOrHide();
}

void ItemHost::showOrHide()
{
    if (!m_menuTimer.isRunning())
        m_item->setActive(isWanted());
}

bool ItemHost::isWanted() const
{
    // Where no desktop shows it, it is still where other programs read the text. Its symbol goes with a
    // strip, but not with the text in the desktop's own bar.
    return m_isShown || !hasHost() || (!m_isTextShown && !m_isOutranked);
}

void ItemHost::handleConnected()
{
    QDBusConnection connection = m_bus.connection();
    m_item->putOn(connection);
    m_menu->putOn(connection);
    m_watcherWatch = std::make_unique<QDBusServiceWatcher>(watcherService, connection);
    // Also from one owner straight to another, when a panel replaces a running one.
    connect(m_watcherWatch.get(), &QDBusServiceWatcher::serviceOwnerChanged, this,
        [this](const QString &, const QString &, const QString &owner) {
            if (owner.isEmpty())
                handleWatcherGone();
            else
                handleWatcher();
        });
    for (const char *signal : { "StatusNotifierHostRegistered", "StatusNotifierHostUnregistered" })
        connection.connect(
            QString(), watcherPath, watcherService, QString::fromLatin1(signal), this, SLOT(askForHost()));
    m_feedWatch = std::make_unique<QDBusServiceWatcher>(FeedHost::feedName, connection);
    connect(m_feedWatch.get(), &QDBusServiceWatcher::serviceOwnerChanged, this,
        [this](const QString &, const QString &, const QString &owner) { m_face.setFed(!owner.isEmpty()); });
    m_face.setFed(!m_bus.ownerOf(FeedHost::feedName).isEmpty());
    if (!m_bus.ownerOf(watcherService).isEmpty())
        handleWatcher();
}

void ItemHost::handleLost()
{
    m_watcherWatch.reset();
    m_feedWatch.reset();
    m_item->takeOff();
    handleWatcherGone();
}

void ItemHost::handleWatcher()
{
    if (!m_isStartingOver)
        m_registrations = 0;
    learnManner();
    registerItem();
    askForHost();
}

void ItemHost::handleWatcherGone()
{
    m_unseenTimer.stop();
    setAvailable(false);
}

void ItemHost::learnManner()
{
    const bool isShell = m_bus.ownerOf(watcherService) == m_bus.ownerOf(QStringLiteral("org.gnome.Shell"));
    const ItemManner manner = mannerOf({ programOf(m_bus, watcherService), isShell }, currentDesktops());
    setTextShown(manner.isTextShown);
    m_face.setManner(manner.face);
}

void ItemHost::registerItem()
{
    const bool isProgramName = m_registrations == 0 && m_bus.owns(programName);
    const QString name = isProgramName ? programName
                                       : QStringLiteral("org.kde.StatusNotifierItem-%1-%2")
                                             .arg(QCoreApplication::applicationPid())
                                             .arg(m_registrations);
    ++m_registrations;
    m_isAnnounced = false;
    if (!isProgramName)
        m_bus.claim(name);
    m_bus.connection().send(
        watcherCall(watcherService, QStringLiteral("RegisterStatusNotifierItem"), { name }));
    m_unseenTimer.start();
}

void ItemHost::handleRead(bool isOnlyTheBeginning)
{
    // Some hosts take the text from the signal only.
    if (!m_isAnnounced)
        m_item->announceLabel();
    m_isAnnounced = true;
    if (isOnlyTheBeginning)
        return;
    m_unseenTimer.stop();
    m_registrations = 0;
    setOverlooked(false);
    if (!m_available)
        askForHost();
}

void ItemHost::startOver()
{
    if (!m_available || !(isWanted() || m_isOverlooked))
        return;
    // Meanwhile the strip is better than no text at all: a watcher may tell of a host that does not run yet.
    setOverlooked(true);
    if (m_registrations >= mostRegistrations)
        return;
    m_isStartingOver = true;
    m_bus.reopen();
    m_isStartingOver = false;
}

void ItemHost::askForHost()
{
    const QDBusMessage call = watcherCall(propertiesInterface, QStringLiteral("Get"),
        { watcherService, QStringLiteral("IsStatusNotifierHostRegistered") });
    callLater(m_bus.connection(), call, this, [this](const QDBusPendingReply<QDBusVariant> &reply) {
        setAvailable(!reply.isError() && reply.value().variant().toBool());
    });
}

void ItemHost::setAvailable(bool available)
{
    if (available == m_available)
        return;
    const bool before = isAvailable();
    m_available = available;
    m_face.setWatched(available);
    if (available && m_registrations > 0)
        m_unseenTimer.start();
    tellAvailability(before);
}

void ItemHost::setOverlooked(bool isOverlooked)
{
    const bool before = isAvailable();
    m_isOverlooked = isOverlooked;
    tellAvailability(before);
}

void ItemHost::setTextShown(bool isShown)
{
    const bool before = isAvailable();
    m_isTextShown = isShown;
    tellAvailability(before);
}

void ItemHost::tellAvailability(bool before)
{
    if (isAvailable() != before)
        emit availabilityChanged();
    // Also where only the symbol came or went.
    showOrHide();
}

void ItemHost::handleClick(QPoint position)
{
    m_face.setCovered(ItemFace::Cover::Menu, false); // A host need not tell that it closed the menu.
    noteAnchor(position);
    emit clicked();
}

void ItemHost::noteAnchor(std::optional<QPoint> position)
{
    // Hosts mean the pointer, the icon's corner or a place inside themselves by their position: the pointer
    // is where the user has just clicked. Only under Wayland it is not known while it is over the desktop's
    // own bar.
    const bool isWayland = qEnvironmentVariableIsSet("WAYLAND_DISPLAY");
    const std::optional<QPoint> pointer = isWayland ? std::nullopt : X11::pointerPosition();
    // A feed has no place to tell.
    const bool isPlace = position && position->x() >= 0 && position->y() >= 0;
    const std::optional<QPoint> told = isPlace ? position : std::nullopt;
    m_anchor = pointer ? pointer : told;
}

void ItemHost::handleEarlyClick(QPoint position)
{
    // The host opens a menu once it has read it. A click before that comes by Activate alone; later on the
    // same click comes by both.
    if (m_sinceMenu.hasPassed(sameClickTime))
        handleClick(position);
}

void ItemHost::handleMenuOpened()
{
    // A menu's click carries no place.
    noteAnchor(m_anchor);
    if (m_face.showsMenu())
        closeMenu();
    else
        m_face.setCovered(ItemFace::Cover::Menu, true);
}

void ItemHost::closeMenu()
{
    m_sinceMenu.start();
    m_item->setActive(false);
    m_menuTimer.start();
    m_clickTimer.start();
}

void ItemHost::handleMenuClosed()
{
    m_face.setCovered(ItemFace::Cover::Menu, false);
    if (m_menuTimer.isRunning())
        comeBack();
    if (m_clickTimer.isRunning()) {
        m_clickTimer.stop();
        emit clicked();
    }
}

void ItemHost::comeBack()
{
    m_menuTimer.stop();
    m_item->setActive(isWanted());
}

} // namespace glimmet
