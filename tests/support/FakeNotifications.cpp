#include "tests/support/FakeNotifications.h"

#include <QDBusArgument>

namespace glimmet {
namespace {

const QString service = QStringLiteral("org.freedesktop.Notifications");
const QString path = QStringLiteral("/org/freedesktop/Notifications");
const QString connectionName = QStringLiteral("fake-notifications");
constexpr uint firstId = 7;

} // namespace

FakeNotifications::FakeNotifications(const PrivateBus &bus)
{
    QDBusConnection connection = bus.peer(connectionName);
    connection.registerVirtualObject(path, this);
    connection.registerService(service);
}

FakeNotifications::~FakeNotifications()
{
    QDBusConnection::disconnectFromBus(connectionName);
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
    return connection.send(message.createReply(firstId + static_cast<uint>(shown.size()) - 1));
}

void FakeNotifications::choose(QDBusConnection connection, uint id, const QString &action)
{
    QDBusMessage signal = QDBusMessage::createSignal(path, service, QStringLiteral("ActionInvoked"));
    signal << id << action;
    connection.send(signal);
}

void FakeNotifications::choose(uint id, const QString &action) const
{
    choose(QDBusConnection(connectionName), id, action);
}

} // namespace glimmet
