#include "platform/keys/SecretServiceTypes.h"

#include <QDBusMetaType>

namespace glimmet {

using namespace SecretServiceNames;

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

QDBusMessage defaultCollectionQuestion(const QString &owner)
{
    QDBusMessage question =
        QDBusMessage::createMethodCall(owner, servicePath, serviceInterface, QStringLiteral("ReadAlias"));
    question << defaultAlias;
    return question;
}

QDBusMessage lockQuestion(const QString &owner, const QDBusObjectPath &object, const QString &interface)
{
    QDBusMessage question =
        QDBusMessage::createMethodCall(owner, object.path(), propertiesInterface, QStringLiteral("Get"));
    question << interface << QStringLiteral("Locked");
    return question;
}

QDBusMessage itemsQuestion(const QString &owner, const SecretAttributes &attributes)
{
    QDBusMessage question =
        QDBusMessage::createMethodCall(owner, servicePath, serviceInterface, QStringLiteral("SearchItems"));
    question << QVariant::fromValue(attributes);
    return question;
}

bool isNone(const QDBusObjectPath &path)
{
    return path.path() == u"/";
}

void registerSecretTypes()
{
    qDBusRegisterMetaType<SecretAttributes>();
    qDBusRegisterMetaType<SecretOfItem>();
}

} // namespace glimmet
