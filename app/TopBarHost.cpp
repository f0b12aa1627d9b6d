#include "app/TopBarHost.h"

#include "platform/bus/SessionBus.h"
#include "platform/desktop/TopBarObject.h"
#include "platform/desktop/X11.h"

#include <QDBusServiceWatcher>

#include <cmath>

namespace glimmet {
namespace {

/// GNOME Shell's and Plasma's; the first that is there is the one that is believed.
const QStringList shellNames{ QStringLiteral("org.gnome.Shell"), QStringLiteral("org.kde.plasmashell") };
const QString extensionName = QStringLiteral("me.kerno.glimmet.TopBar");

int scaled(int value, int from, int to)
{
    return from > 0 && to > 0 ? static_cast<int>(std::lround(double(value) * to / from)) : value;
}

} // namespace

QPoint nativeAnchor(const QRect &button, QSize stage, QSize root)
{
    return { scaled(button.x() + button.width() / 2, stage.width(), root.width()),
        scaled(button.y() + button.height(), stage.height(), root.height()) };
}

TopBarHost::TopBarHost(SessionBus &bus, Timers &timers, QObject *parent)
    : MenuBarHost(parent)
    , m_bus(bus)
    , m_object(
          std::make_unique<TopBarObject>(timers, [this](const QString &caller) { return isShell(caller); }))
{
    connect(m_object.get(), &TopBarObject::placed, this, [this](const QRect &button, QSize stage) {
        m_anchor = nativeAnchor(button, stage, X11::rootSize().value_or(QSize()));
    });
    connect(m_object.get(), &TopBarObject::toggled, this, &TopBarHost::clicked);
    connect(m_object.get(), &TopBarObject::pressedElsewhere, this, &TopBarHost::pressedElsewhere);
    connect(&m_bus, &SessionBus::connected, this, &TopBarHost::handleConnected);
    connect(&m_bus, &SessionBus::lost, this, &TopBarHost::handleLost);
    if (m_bus.isConnected())
        handleConnected();
}

TopBarHost::~TopBarHost() = default;

void TopBarHost::setText(const QString &text)
{
    m_object->setText(text);
}

void TopBarHost::setPanelOpen(bool isOpen)
{
    m_object->setPanelOpen(isOpen);
}

void TopBarHost::handleConnected()
{
    m_object->putOn(m_bus.connection());
    m_watch = std::make_unique<QDBusServiceWatcher>(extensionName, m_bus.connection());
    connect(m_watch.get(), &QDBusServiceWatcher::serviceOwnerChanged, this, &TopBarHost::lookForExtension);
    lookForExtension();
}

void TopBarHost::handleLost()
{
    m_watch.reset();
    m_object->takeOff();
    setAvailable(false);
}

void TopBarHost::lookForExtension()
{
    setAvailable(isShell(m_bus.ownerOf(extensionName)));
}

void TopBarHost::setAvailable(bool available)
{
    m_object->setTelling(available);
    if (available == m_available)
        return;
    m_available = available;
    m_anchor.reset();
    emit availabilityChanged();
}

bool TopBarHost::isShell(const QString &participant) const
{
    // Asked at each call: the shell may have been replaced, and its name been taken by somebody else.
    // Plasma's name is anybody's to take where the desktop is GNOME.
    for (const QString &name : shellNames) {
        if (const QString owner = m_bus.ownerOf(name); !owner.isEmpty())
            return participant == owner;
    }
    return false;
}

} // namespace glimmet
