#include "platform/bus/SessionBus.h"

#include "platform/bus/BusCalls.h"
#include "platform/bus/SessionBusAddress.h"

#include <QDBusConnectionInterface>
#include <QDBusReply>

#include <chrono>
#include <utility>

namespace glimmet {

using namespace std::chrono_literals;

SessionBus::SessionBus(QObject *parent)
    : QObject(parent)
    , m_connection(QString())
{
    m_retryTimer.setInterval(2s);
    connect(&m_retryTimer, &QTimer::timeout, this, &SessionBus::tryToConnect);
}

SessionBus::~SessionBus()
{
    QDBusConnection::disconnectFromBus(m_connection.name());
}

void SessionBus::open()
{
    m_retryTimer.start();
    tryToConnect();
}

void SessionBus::reopen()
{
    // The connection itself closes only after the last copy of it is gone, too late for its successor.
    for (const QString &name : std::as_const(m_names))
        m_connection.unregisterService(name);
    handleDisconnected();
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

void SessionBus::tryToConnect()
{
    const QString address = sessionBusAddress();
    if (address.isEmpty())
        return;
    m_connection = connectAfresh(address, QStringLiteral("glimmet-session-"));
    if (!m_connection.isConnected()) {
        QDBusConnection::disconnectFromBus(m_connection.name());
        return;
    }
    m_retryTimer.stop();
    listenForLoss(m_connection, this, SLOT(handleDisconnected()));
    emit connected();
}

void SessionBus::handleDisconnected()
{
    QDBusConnection::disconnectFromBus(m_connection.name());
    m_connection = QDBusConnection(QString());
    m_names.clear();
    m_retryTimer.start();
    emit lost();
}

} // namespace glimmet
