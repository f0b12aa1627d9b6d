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
    m_pending = watcher;
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this](QDBusPendingCallWatcher *answered) {
        answered->deleteLater();
        handleAnswer(*answered);
    });
}

void UpdateNotification::listen()
{
    // From anybody, for the reason told in PackageKitTransaction.
    m_bus.connect(anybody, path, notifications, QStringLiteral("ActionInvoked"), this,
        SLOT(handleAction(QDBusMessage)));
}

void UpdateNotification::handleAnswer(const QDBusPendingCallWatcher &answered)
{
    const bool isWanted = m_pending == &answered;
    if (isWanted)
        m_pending = nullptr;
    if (!answered.isError())
        return handleShown(answered.reply(), isWanted);
    // Nobody has seen it. Only one that was not answered may be on the screen all the same.
    if (isWanted && answered.error().type() != QDBusError::NoReply)
        m_lastVersion.clear();
}

void UpdateNotification::handleShown(const QDBusMessage &reply, bool isWanted)
{
    const uint id = reply.arguments().value(0).toUInt();
    if (!isWanted)
        return takeAway(reply.service(), id);
    m_owner = reply.service();
    m_id = id;
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
    m_pending = nullptr; // It is taken away once its number is known.
    if (const uint id = std::exchange(m_id, 0); id != 0)
        takeAway(m_owner, id);
}

void UpdateNotification::takeAway(const QString &owner, uint id)
{
    QDBusMessage message =
        QDBusMessage::createMethodCall(owner, path, notifications, QStringLiteral("CloseNotification"));
    message << id;
    m_bus.send(message);
}

} // namespace glimmet
