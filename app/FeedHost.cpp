#include "app/FeedHost.h"

#include "platform/bus/SessionBus.h"
#include "platform/desktop/X11.h"

#include <QDBusServiceWatcher>

namespace glimmet {

const QString FeedHost::feedName = QStringLiteral("me.kerno.glimmet.Feed");

FeedHost::FeedHost(SessionBus &bus, QObject *parent)
    : MenuBarHost(parent)
    , m_bus(bus)
{
    connect(&m_bus, &SessionBus::connected, this, &FeedHost::follow);
    connect(&m_bus, &SessionBus::lost, this, [this] {
        m_watch.reset();
        setRead(false);
    });
    if (m_bus.isConnected())
        follow();
}

FeedHost::~FeedHost() = default;

std::optional<QPoint> FeedHost::anchor() const
{
    return X11::pointerPosition();
}

void FeedHost::follow()
{
    m_watch = std::make_unique<QDBusServiceWatcher>(feedName, m_bus.connection());
    connect(m_watch.get(), &QDBusServiceWatcher::serviceOwnerChanged, this,
        [this](const QString &, const QString &, const QString &owner) { setRead(!owner.isEmpty()); });
    setRead(!m_bus.ownerOf(feedName).isEmpty());
}

void FeedHost::setRead(bool isRead)
{
    if (isRead == m_isRead)
        return;
    m_isRead = isRead;
    emit availabilityChanged();
}

} // namespace glimmet
