#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingReply>
#include <QObject>
#include <QString>

#include <functional>
#include <optional>

/// The bus itself, which knows who serves a name
/// (https://dbus.freedesktop.org/doc/dbus-specification.html#message-bus-messages).
namespace glimmet::BusDaemon {

using OwnerFound = std::function<void(const QDBusPendingReply<QString> &owner)>;

/// A name went from one participant to another.
struct OwnerChange {
    QString name;
    QString owner; ///< empty: it has none any more
};

QDBusMessage method(const QString &name);
QDBusMessage ownerQuestion(const QString &name);
QDBusMessage startRequest(const QString &name);

/// Finds the unique name of the program that serves `name`, which is started if it does not run, or tells why
/// there is none. Whoever then talks to the unique name talks to one life of the service: the next one
/// neither gets what was meant for this one nor can speak for it. The sender of a reply is no substitute,
/// since Qt 6.8 leaves it empty.
///
/// Calls `found` once, from the event loop, unless the receiver is gone. The bus limits how long a start
/// takes.
void findOwner(const QDBusConnection &bus, const QString &name, QObject *receiver, const OwnerFound &found);

/// Has `slot`, which takes a QDBusMessage, called with what `ownerChange` reads.
void followOwner(const QDBusConnection &bus, const QString &name, QObject *receiver, const char *slot);
/// None where the signal is not the bus's own.
std::optional<OwnerChange> ownerChange(const QDBusMessage &signal);

} // namespace glimmet::BusDaemon
