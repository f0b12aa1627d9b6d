#pragma once

#include <QString>

/// The names of the protocol.
namespace glimmet::SecretServiceNames {

inline const QString service = QStringLiteral("org.freedesktop.secrets");
inline const QString servicePath = QStringLiteral("/org/freedesktop/secrets");
inline const QString serviceInterface = QStringLiteral("org.freedesktop.Secret.Service");
inline const QString collectionInterface = QStringLiteral("org.freedesktop.Secret.Collection");
inline const QString itemInterface = QStringLiteral("org.freedesktop.Secret.Item");
inline const QString promptInterface = QStringLiteral("org.freedesktop.Secret.Prompt");
inline const QString propertiesInterface = QStringLiteral("org.freedesktop.DBus.Properties");

} // namespace glimmet::SecretServiceNames
