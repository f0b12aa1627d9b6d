#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QVariantMap>

namespace glimmet {

/// The standard interface by which properties are read
/// (https://dbus.freedesktop.org/doc/dbus-specification.html#standard-interfaces-properties).
inline const QString propertiesInterface = QStringLiteral("org.freedesktop.DBus.Properties");

/// Answers Get and GetAll of an object whose properties are `all`. False for any other call, and for a
/// property that is not there, which is for the caller to answer by an error: the bus has no value for it.
bool answerProperties(const QDBusMessage &message, const QDBusConnection &connection, const QVariantMap &all);

} // namespace glimmet
