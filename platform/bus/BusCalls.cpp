#include "platform/bus/BusCalls.h"

#include <QDBusPendingCallWatcher>

namespace glimmet {
namespace {

const QString anySender;
const QString anySignature;

} // namespace

QDBusConnection connectAfresh(const QString &address, const QString &prefix)
{
    static int count = 0;
    return QDBusConnection::connectToBus(address, prefix + QString::number(++count));
}

QObject *callLater(const QDBusConnection &bus, const QDBusMessage &message, QObject *receiver,
    const std::function<void(const QDBusPendingCall &answer)> &use, int timeout)
{
    auto *watcher = new QDBusPendingCallWatcher(bus.asyncCall(message, timeout), receiver);
    const auto take = [use](QDBusPendingCallWatcher *answered) {
        answered->deleteLater();
        use(*answered);
    };
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, receiver, take);
    return watcher;
}

void listen(QDBusConnection bus, const BusSignal &signal, QObject *receiver, const char *slot)
{
    bus.connect(anySender, signal.path, signal.interface, signal.name, signal.arguments, anySignature,
        receiver, slot);
}

void stopListening(QDBusConnection bus, const BusSignal &signal, QObject *receiver, const char *slot)
{
    bus.disconnect(anySender, signal.path, signal.interface, signal.name, signal.arguments, anySignature,
        receiver, slot);
}

void listenForLoss(const QDBusConnection &bus, QObject *receiver, const char *slot)
{
    listen(bus,
        { QStringLiteral("/org/freedesktop/DBus/Local"), QStringLiteral("org.freedesktop.DBus.Local"),
            QStringLiteral("Disconnected") },
        receiver, slot);
}

} // namespace glimmet
