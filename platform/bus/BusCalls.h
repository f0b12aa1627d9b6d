#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QObject>
#include <QString>
#include <QStringList>

#include <functional>
#include <limits>

/// What every user of a bus does, and the two things that Qt gets wrong there.
namespace glimmet {

/// As a time-out: the bus and the service decide how long a call takes.
constexpr int withoutLimit = std::numeric_limits<int>::max();
/// As a time-out: 25 seconds.
constexpr int usualLimit = -1;

/// A connection of its own. Each has a new name that begins with `prefix`, since Qt closes one only after its
/// last user has gone, and until then hands it out under its name instead of a new one.
QDBusConnection connectAfresh(const QString &address, const QString &prefix);

/// Sends the message and calls `use` with the answer or the error, once, from the event loop; never where the
/// receiver is gone or the returned object was deleted. Qt answers nothing on a connection that was never
/// made or is closed.
QObject *callLater(const QDBusConnection &bus, const QDBusMessage &message, QObject *receiver,
    const std::function<void(const QDBusPendingCall &answer)> &use, int timeout = usualLimit);

/// A signal on the bus; what is empty stands for any.
struct BusSignal {
    QString path;
    QString interface;
    QString name;
    QStringList arguments{}; ///< the first ones, as texts
};

/// Has `slot` called with each such signal, whoever sends it: the slot knows from whom it takes one. To
/// listen to a well-known name alone, Qt asks for its owner in a way that ends the process if the bus is lost
/// at that moment.
void listen(QDBusConnection bus, const BusSignal &signal, QObject *receiver, const char *slot);
void stopListening(QDBusConnection bus, const BusSignal &signal, QObject *receiver, const char *slot);

/// Has `slot`, without arguments, called when the connection is lost.
void listenForLoss(const QDBusConnection &bus, QObject *receiver, const char *slot);

} // namespace glimmet
