#include "platform/keys/SecretServiceTypes.h"

#include <QDBusMetaType>

namespace glimmet {

QDBusArgument &operator<<(QDBusArgument &argument, const SecretOfItem &secret)
{
    argument.beginStructure();
    argument << secret.session << secret.parameters << secret.value << secret.contentType;
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, SecretOfItem &secret)
{
    argument.beginStructure();
    argument >> secret.session >> secret.parameters >> secret.value >> secret.contentType;
    argument.endStructure();
    return argument;
}

void registerSecretTypes()
{
    qDBusRegisterMetaType<SecretAttributes>();
    qDBusRegisterMetaType<SecretOfItem>();
}

} // namespace glimmet
