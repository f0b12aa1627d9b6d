#include "platform/desktop/DesktopNotification.h"

#include "platform/ProgramName.h"
#include "platform/bus/BusCalls.h"
#include "platform/bus/BusDaemon.h"

#include <QStringList>
#include <QVariantMap>

#include <utility>

namespace glimmet {
namespace {

const QString notifications = QStringLiteral("org.freedesktop.Notifications");
const QString path = QStringLiteral("/org/freedesktop/Notifications");
const BusSignal action{ path, notifications, QStringLiteral("ActionInvoked") };

QDBusMessage method(const QString &owner, const QString &name)
{
    return QDBusMessage::createMethodCall(owner, path, notifications, name);
}

QVariantList argumentsOf(const NotificationContent &content)
{
    const uint replacesNone = 0;
    const int desktopDecides = -1; // how long it is shown
    QStringList actions;
    for (const auto &[key, words] : content.actions)
        actions << key << words;
    return { QStringLiteral("glimmet"), replacesNone, programName, content.summary, content.body, actions,
        QVariantMap{ { QStringLiteral("desktop-entry"), programName } }, desktopDecides };
}

} // namespace

DesktopNotification::~DesktopNotification()
{
    close();
}

void DesktopNotification::show(const QDBusConnection &sessionBus, const NotificationContent &content)
{
    close();
    m_bus = sessionBus;
    listen(m_bus, action, this, SLOT(handleAction(QDBusMessage)));
    const auto showBy = [this, showing = m_showing, arguments = argumentsOf(content)](
                            const QDBusPendingReply<QString> &owner) {
        if (showing != m_showing)
            return;
        if (owner.isError())
            emit failed();
        else
            send(owner.value(), arguments);
    };
    BusDaemon::findOwner(m_bus, notifications, this, showBy);
}

void DesktopNotification::send(const QString &owner, const QVariantList &content)
{
    QDBusMessage message = method(owner, QStringLiteral("Notify"));
    message.setArguments(content);
    callLater(m_bus, message, this, [this, owner, showing = m_showing](const QDBusPendingCall &answer) {
        handleAnswer(answer, owner, showing == m_showing);
    });
}

void DesktopNotification::handleAnswer(const QDBusPendingReply<uint> &id, const QString &owner, bool isWanted)
{
    if (!id.isError())
        return handleShown(id.value(), owner, isWanted);
    // The user has not seen it. Only one that was not answered may be on the screen all the same.
    if (isWanted && id.error().type() != QDBusError::NoReply)
        emit failed();
}

void DesktopNotification::handleShown(uint id, const QString &owner, bool isWanted)
{
    if (!isWanted)
        return takeAway(owner, id);
    m_owner = owner;
    m_id = id;
}

void DesktopNotification::handleAction(const QDBusMessage &signal)
{
    const QVariantList values = signal.arguments();
    const bool isMine = m_id != 0 && signal.service() == m_owner && values.value(0).toUInt() == m_id;
    if (!isMine)
        return;
    close();
    emit chosen(values.value(1).toString());
}

void DesktopNotification::close()
{
    stopListening(m_bus, action, this, SLOT(handleAction(QDBusMessage)));
    ++m_showing; // One that is on its way is taken away once its number is known.
    if (const uint id = std::exchange(m_id, 0); id != 0)
        takeAway(m_owner, id);
}

void DesktopNotification::takeAway(const QString &owner, uint id)
{
    QDBusMessage message = method(owner, QStringLiteral("CloseNotification"));
    message << id;
    m_bus.send(message);
}

} // namespace glimmet
