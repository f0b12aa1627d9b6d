#include "app/updates/UpdateNotification.h"

#include "platform/bus/SessionBus.h"

namespace glimmet {
namespace {

const QString install = QStringLiteral("install");

NotificationContent contentFor(const QString &installedVersion, const QString &newVersion)
{
    return { QStringLiteral("Update available"),
        QStringLiteral("glimmet %1 can be installed. You have %2.").arg(newVersion, installedVersion),
        { { install, QStringLiteral("Install") }, { QStringLiteral("later"), QStringLiteral("Later") } } };
}

} // namespace

UpdateNotification::UpdateNotification(QObject *parent)
    : QObject(parent)
{
    const auto handleChoice = [this](const QString &key) {
        if (key == install)
            emit installChosen();
    };
    connect(&m_notification, &DesktopNotification::chosen, this, handleChoice);
    connect(&m_notification, &DesktopNotification::failed, this, [this] { m_lastVersion.clear(); });
}

void UpdateNotification::show(
    const SessionBus &sessionBus, const QString &installedVersion, const QString &newVersion)
{
    if (newVersion == m_lastVersion || !sessionBus.isConnected())
        return;
    m_lastVersion = newVersion;
    m_notification.show(sessionBus.connection(), contentFor(installedVersion, newVersion));
}

void UpdateNotification::close()
{
    m_notification.close();
}

} // namespace glimmet
