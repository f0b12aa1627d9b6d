#pragma once

#include "platform/bus/BusProperties.h"

#include <QByteArray>
#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QMap>
#include <QString>

namespace glimmet {

/// As the protocol names them.
namespace SecretServiceNames {

inline const QString service = QStringLiteral("org.freedesktop.secrets");
inline const QString servicePath = QStringLiteral("/org/freedesktop/secrets");
inline const QString serviceInterface = QStringLiteral("org.freedesktop.Secret.Service");
inline const QString collectionInterface = QStringLiteral("org.freedesktop.Secret.Collection");
inline const QString itemInterface = QStringLiteral("org.freedesktop.Secret.Item");
inline const QString promptInterface = QStringLiteral("org.freedesktop.Secret.Prompt");
inline const QString defaultAlias = QStringLiteral("default"); ///< of the user's own collection

} // namespace SecretServiceNames

/// What items are found by. Signature a{ss}.
using SecretAttributes = QMap<QString, QString>;

/// The protocol's secret within a session. Signature (oayays).
struct SecretOfItem {
    QDBusObjectPath session;
    QByteArray parameters; ///< of the session's cipher; empty without one
    QByteArray value;
    QString contentType;
};

QDBusArgument &operator<<(QDBusArgument &argument, const SecretOfItem &secret);
const QDBusArgument &operator>>(const QDBusArgument &argument, SecretOfItem &secret);
QDebug operator<<(QDebug, const SecretOfItem &) = delete;

/// Which collection is the user's own; answered by its path, or by the one that stands for none. `owner` is
/// the service's name, well-known or unique.
QDBusMessage defaultCollectionQuestion(const QString &owner);
/// Whether a collection or an item (by its `interface`) is locked; answered by a variant with a boolean.
QDBusMessage lockQuestion(const QString &owner, const QDBusObjectPath &object, const QString &interface);
/// Which items have `attributes`; answered by the paths of the unlocked ones and of the locked ones.
QDBusMessage itemsQuestion(const QString &owner, const SecretAttributes &attributes);
bool isNone(const QDBusObjectPath &path);

/// Makes the types known to the bus; more than once does no harm.
void registerSecretTypes();

} // namespace glimmet

Q_DECLARE_METATYPE(glimmet::SecretOfItem)
