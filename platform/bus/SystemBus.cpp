#include "platform/bus/SystemBus.h"

#include "platform/EndLater.h"
#include "platform/bus/BusCalls.h"
#include "platform/bus/BusProbe.h"

#include <utility>

namespace glimmet {
namespace {

const QString unixPath = QStringLiteral("unix:path=");

QString systemAddress()
{
    return qEnvironmentVariable(
        "DBUS_SYSTEM_BUS_ADDRESS", QStringLiteral("unix:path=/var/run/dbus/system_bus_socket"));
}

/// The socket's file in an address such as "unix:path=/run/bus,guid=12"; empty for other kinds.
QString socketPath(const QString &address)
{
    if (!address.startsWith(unixPath))
        return {};
    return address.section(u';', 0, 0).section(u',', 0, 0).mid(unixPath.size());
}

} // namespace

SystemBus::SystemBus(QString address, QObject *parent)
    : QObject(parent)
    , m_address(address.isEmpty() ? systemAddress() : std::move(address))
{
}

SystemBus::~SystemBus()
{
    close();
}

void SystemBus::open(const Ready &ready)
{
    m_ready = ready;
    // Never from within the call.
    QMetaObject::invokeMethod(this, &SystemBus::look, Qt::QueuedConnection);
}

void SystemBus::look()
{
    if (!m_ready || m_probe)
        return;
    if (m_connection.isConnected())
        return finish();
    const QString path = socketPath(m_address);
    if (path.isEmpty())
        return connectNow();
    m_probe = std::make_unique<BusProbe>(path);
    connect(m_probe.get(), &BusProbe::over, this, [this](bool isAlive) {
        if (isAlive)
            connectNow();
        else
            finish();
    });
}

void SystemBus::connectNow()
{
    QDBusConnection::disconnectFromBus(m_connection.name());
    m_connection = connectAfresh(m_address, QStringLiteral("glimmet-system-"));
    finish();
}

void SystemBus::finish()
{
    endLater(m_probe);
    if (const Ready ready = std::exchange(m_ready, nullptr))
        ready(m_connection);
}

void SystemBus::close()
{
    m_ready = nullptr;
    endLater(m_probe);
    if (m_connection.name().isEmpty())
        return;
    QDBusConnection::disconnectFromBus(m_connection.name());
    m_connection = QDBusConnection(QString());
}

} // namespace glimmet
