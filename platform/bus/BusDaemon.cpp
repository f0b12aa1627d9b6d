#include "platform/bus/BusDaemon.h"

#include "platform/bus/BusCalls.h"

namespace glimmet::BusDaemon {
namespace {

const QString service = QStringLiteral("org.freedesktop.DBus");
const QString interface = QStringLiteral("org.freedesktop.DBus");
const QString path = QStringLiteral("/org/freedesktop/DBus");

void ask(const QDBusConnection &bus, const QDBusMessage &question, QObject *receiver,
    const std::function<void(const QDBusPendingCall &)> &use)
{
    callLater(bus, question, receiver, use, withoutLimit);
}

void startAndFindOwner(
    const QDBusConnection &bus, const QString &name, QObject *receiver, const OwnerFound &found)
{
    ask(bus, startRequest(name), receiver, [bus, name, receiver, found](const QDBusPendingCall &started) {
        if (started.isError())
            return found(started);
        ask(bus, ownerQuestion(name), receiver, found);
    });
}

} // namespace

QDBusMessage method(const QString &name)
{
    return QDBusMessage::createMethodCall(service, path, interface, name);
}

QDBusMessage ownerQuestion(const QString &name)
{
    QDBusMessage question = method(QStringLiteral("GetNameOwner"));
    question << name;
    return question;
}

QDBusMessage startRequest(const QString &name)
{
    const uint noFlags = 0;
    QDBusMessage request = method(QStringLiteral("StartServiceByName"));
    request << name << noFlags;
    return request;
}

void findOwner(const QDBusConnection &bus, const QString &name, QObject *receiver, const OwnerFound &found)
{
    ask(bus, ownerQuestion(name), receiver, [bus, name, receiver, found](const QDBusPendingCall &owner) {
        if (owner.error().name().endsWith(u".NameHasNoOwner"))
            return startAndFindOwner(bus, name, receiver, found);
        found(owner);
    });
}

void followOwner(const QDBusConnection &bus, const QString &name, QObject *receiver, const char *slot)
{
    listen(bus, { path, interface, QStringLiteral("NameOwnerChanged"), { name } }, receiver, slot);
}

std::optional<OwnerChange> ownerChange(const QDBusMessage &signal)
{
    if (signal.service() != service)
        return std::nullopt;
    const QVariantList values = signal.arguments();
    return OwnerChange{ values.value(0).toString(), values.value(2).toString() };
}

} // namespace glimmet::BusDaemon
