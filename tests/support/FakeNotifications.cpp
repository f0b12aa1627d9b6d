#include "tests/support/FakeNotifications.h"

#include <QDBusArgument>

#include <utility>

namespace glimmet {
namespace {

const QString service = QStringLiteral("org.freedesktop.Notifications");
const QString path = QStringLiteral("/org/freedesktop/Notifications");
constexpr uint firstId = 7;

} // namespace

FakeNotifications::FakeNotifications(const PrivateBus &bus)
    : m_bus(bus)
{
    restart();
}

FakeNotifications::~FakeNotifications()
{
    leave(m_connectionName, path);
}

void FakeNotifications::restart()
{
    if (!m_connectionName.isEmpty())
        connection().unregisterService(service);
    leave(m_connectionName, path);
    m_connectionName = QStringLiteral("fake-notifications-%1").arg(++m_lives);
    shown.clear();
    QDBusConnection next = m_bus.peer(m_connectionName);
    next.registerVirtualObject(path, this);
    next.registerService(service);
}

QString FakeNotifications::introspect(const QString &) const
{
    return {};
}

bool FakeNotifications::handleMessage(const QDBusMessage &message, const QDBusConnection &connection)
{
    const QVariantList values = message.arguments();
    if (message.member() == u"CloseNotification") {
        closed.append(values.value(0).toUInt());
        return connection.send(message.createReply());
    }
    if (message.member() != u"Notify")
        return false;
    shown.append({ values.value(0).toString(), values.value(2).toString(), values.value(3).toString(),
        values.value(4).toString(), values.value(5).toStringList(),
        qdbus_cast<QVariantMap>(values.value(6)) });
    m_waiting.append(message.createReply(firstId + static_cast<uint>(shown.size()) - 1));
    if (!isSlow)
        answer();
    return true;
}

void FakeNotifications::answer()
{
    for (const QDBusMessage &reply : std::exchange(m_waiting, {}))
        connection().send(reply);
}

void FakeNotifications::choose(QDBusConnection connection, uint id, const QString &action)
{
    QDBusMessage signal = QDBusMessage::createSignal(path, service, QStringLiteral("ActionInvoked"));
    signal << id << action;
    connection.send(signal);
}

void FakeNotifications::choose(uint id, const QString &action) const
{
    choose(connection(), id, action);
}

} // namespace glimmet
