#include "platform/bus/SessionBus.h"

#include "platform/bus/BusCalls.h"
#include "platform/bus/SessionBusAddress.h"

#include <QDBusConnectionInterface>
#include <QDBusReply>

#include <chrono>
#include <utility>

namespace glimmet {

using namespace std::chrono_literals;

SessionBus::SessionBus(Timers &timers, QObject *parent)
    : QObject(parent)
    , m_timers(timers)
    , m_connection(QString())
{
}

SessionBus::~SessionBus()
{
    QDBusConnection::disconnectFromBus(m_connection.name());
}

void SessionBus::open()
{
    keepTrying();
    tryToConnect();
}

void SessionBus::reopen()
{
    // The connection itself closes only after the last copy of it is gone, too late for its successor.
    for (const QString &name : std::as_const(m_names))
        m_connection.unregisterService(name);
    leave();
    tryToConnect();
}

bool SessionBus::claim(const QString &name)
{
    if (!isConnected() || !m_connection.registerService(name))
        return false;
    m_names.append(name);
    return true;
}

QString SessionBus::ownerOf(const QString &name) const
{
    if (!isConnected())
        return {};
    return m_connection.interface()->serviceOwner(name).value();
}

void SessionBus::keepTrying()
{
    m_retryTimer = m_timers.repeating(2s, [this] { tryToConnect(); });
}

void SessionBus::tryToConnect()
{
    const QString address = QString::fromStdString(sessionBusAddress());
    if (address.isEmpty())
        return;
    m_connection = connectAfresh(address, QStringLiteral("glimmet-session-"));
    if (!m_connection.isConnected()) {
        QDBusConnection::disconnectFromBus(m_connection.name());
        return;
    }
    m_retryTimer.reset();
    listenForLoss(m_connection, this, SLOT(handleDisconnected()));
    emit connected();
}

void SessionBus::handleDisconnected()
{
    leave();
    emit broken();
}

void SessionBus::leave()
{
    QDBusConnection::disconnectFromBus(m_connection.name());
    m_connection = QDBusConnection(QString());
    m_names.clear();
    keepTrying();
    emit lost();
}

} // namespace glimmet
