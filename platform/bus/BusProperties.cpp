#include "platform/bus/BusProperties.h"

#include <QDBusVariant>

namespace glimmet {

bool answerProperties(const QDBusMessage &message, const QDBusConnection &connection, const QVariantMap &all)
{
    if (message.member() == u"GetAll")
        return connection.send(message.createReply(QVariant(all)));
    const auto found = all.constFind(message.arguments().value(1).toString());
    if (message.member() != u"Get" || found == all.cend())
        return false;
    return connection.send(message.createReply(QVariant::fromValue(QDBusVariant(*found))));
}

} // namespace glimmet
