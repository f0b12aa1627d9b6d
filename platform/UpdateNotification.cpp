#include "platform/UpdateNotification.h"

#include "platform/ProgramName.h"

#include <QDBusPendingCallWatcher>
#include <QStringList>
#include <QVariantMap>

#include <utility>

namespace glimmet {
namespace {

const QString notifications = QStringLiteral("org.freedesktop.Notifications");
const QString path = QStringLiteral("/org/freedesktop/Notifications");
const QString install = QStringLiteral("install");
const QString anybody;

QDBusMessage notify(const QString &installedVersion, const QString &newVersion)
{
    QDBusMessage message =
        QDBusMessage::createMethodCall(notifications, path, notifications, QStringLiteral("Notify"));
    const uint replacesNone = 0;
    const int desktopDecides = -1; // how long it is shown
    const QStringList actions{ install, QStringLiteral("Install"), QStringLiteral("later"),
        QStringLiteral("Later") };
    message << QStringLiteral("glimmet") << replacesNone << programName << QStringLiteral("Update available")
            << QStringLiteral("glimmet %1 can be installed. You have %2.").arg(newVersion, installedVersion)
            << actions << QVariantMap{ { QStringLiteral("desktop-entry"), programName } } << desktopDecides;
    return message;
}

} // namespace

UpdateNotification::~UpdateNotification()
{
    close();
}

void UpdateNotification::show(
    const QDBusConnection &sessionBus, const QString &installedVersion, const QString &newVersion)
{
    if (newVersion == m_lastVersion || !sessionBus.isConnected())
        return;
    close();
    m_bus = sessionBus;
    m_lastVersion = newVersion;
    listen();
    auto *watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(notify(installedVersion, newVersion)), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this](QDBusPendingCallWatcher *answered) {
        answered->deleteLater();
        handleShown(answered->reply());
    });
}

void UpdateNotification::listen()
{
    // From anybody, for the reason told in PackageKitTransaction.
    m_bus.connect(anybody, path, notifications, QStringLiteral("ActionInvoked"), this,
        SLOT(handleAction(QDBusMessage)));
}

void UpdateNotification::handleShown(const QDBusMessage &reply)
{
    if (reply.type() != QDBusMessage::ReplyMessage)
        return;
    m_owner = reply.service();
    m_id = reply.arguments().value(0).toUInt();
}

void UpdateNotification::handleAction(const QDBusMessage &signal)
{
    const QVariantList values = signal.arguments();
    const bool isMine = m_id != 0 && signal.service() == m_owner && values.value(0).toUInt() == m_id;
    if (!isMine)
        return;
    close();
    if (values.value(1).toString() == install)
        emit installChosen();
}

void UpdateNotification::close()
{
    m_bus.disconnect(anybody, path, notifications, QStringLiteral("ActionInvoked"), this,
        SLOT(handleAction(QDBusMessage)));
    if (const uint id = std::exchange(m_id, 0); id != 0) {
        QDBusMessage message =
            QDBusMessage::createMethodCall(m_owner, path, notifications, QStringLiteral("CloseNotification"));
        message << id;
        m_bus.send(message);
    }
}

} // namespace glimmet
