#include "tests/support/HeardSignals.h"

namespace glimmet {

HeardSignals::HeardSignals(QDBusConnection listener, const QString &service, const QString &path,
    const QString &interface, const QStringList &signalNames)
{
    for (const QString &name : signalNames)
        listener.connect(service, path, interface, name, this, SLOT(hear(QDBusMessage)));
}

void HeardSignals::hear(const QDBusMessage &message)
{
    all.append(message.member() + u':' + message.arguments().value(0).toString());
}

} // namespace glimmet
