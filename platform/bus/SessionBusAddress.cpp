#include "platform/bus/SessionBusAddress.h"

#include <QFileInfo>

namespace glimmet {

QString sessionBusAddress()
{
    QString named = qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS");
    if (!named.isEmpty())
        return named;
    const QString socket = qEnvironmentVariable("XDG_RUNTIME_DIR") + QStringLiteral("/bus");
    return QFileInfo::exists(socket) ? QStringLiteral("unix:path=") + socket : QString();
}

} // namespace glimmet
