#include "platform/updates/UpdateNotification.h"

#include "platform/ProgramName.h"
#include "platform/bus/BusDaemon.h"

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

QDBusMessage method(const QString &owner, const QString &name)
{
    return QDBusMessage::createMethodCall(owner, path, notifications, name);
}

QVariantList notice(const QString &installedVersion, const QString &newVersion)
{
    const uint replacesNone = 0;
    const int desktopDecides = -1; // how long it is shown
    const QStringList actions{ install, QStringLiteral("Install"), QStringLiteral("later"),
        QStringLiteral("Later") };
    return { QStringLiteral("glimmet"), replacesNone, programName, QStringLiteral("Update available"),
        QStringLiteral("glimmet %1 can be installed. You have %2.").arg(newVersion, installedVersion),
        actions, QVariantMap{ { QStringLiteral("desktop-entry"), programName } }, desktopDecides };
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
    const QVariantList content = notice(installedVersion, newVersion);
    const auto showBy = [this, showing = m_showing, content](const QDBusPendingReply<QString> &owner) {
        if (showing != m_showing)
            return;
        if (owner.isError())
            return m_lastVersion.clear();
        send(owner.value(), content);
    };
    BusDaemon::findOwner(m_bus, notifications, this, showBy);
}

void UpdateNotification::send(const QString &owner, const QVariantList &content)
{
    QDBusMessage message = method(owner, QStringLiteral("Notify"));
    message.setArguments(content);
    const auto take = [this, owner, showing = m_showing](QDBusPendingCallWatcher *answered) {
        answered->deleteLater();
        handleAnswer(*answered, owner, showing == m_showing);
    };
    auto *watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(message), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, take);
}

void UpdateNotification::listen()
{
    // From anybody, for the reason told in PackageKitTransaction; `handleAction` knows the owner.
    m_bus.connect(anybody, path, notifications, QStringLiteral("ActionInvoked"), this,
        SLOT(handleAction(QDBusMessage)));
}

void UpdateNotification::handleAnswer(const QDBusPendingReply<uint> &id, const QString &owner, bool isWanted)
{
    if (!id.isError())
        return handleShown(id.value(), owner, isWanted);
    // Nobody has seen it. Only one that was not answered may be on the screen all the same.
    if (isWanted && id.error().type() != QDBusError::NoReply)
        m_lastVersion.clear();
}

void UpdateNotification::handleShown(uint id, const QString &owner, bool isWanted)
{
    if (!isWanted)
        return takeAway(owner, id);
    m_owner = owner;
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
    ++m_showing; // One that is on its way is taken away once its number is known.
    if (const uint id = std::exchange(m_id, 0); id != 0)
        takeAway(m_owner, id);
}

void UpdateNotification::takeAway(const QString &owner, uint id)
{
    QDBusMessage message = method(owner, QStringLiteral("CloseNotification"));
    message << id;
    m_bus.send(message);
}

} // namespace glimmet
