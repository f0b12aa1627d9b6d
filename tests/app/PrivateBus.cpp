#include "tests/app/PrivateBus.h"

#include <QDBusPendingCall>
#include <QFile>
#include <QTest>

#include <stdexcept>

namespace glimmet {

PrivateBus::PrivateBus()
    : m_address(QStringLiteral("unix:path=") + m_folder.filePath(QStringLiteral("bus")))
{
    qputenv("DBUS_SESSION_BUS_ADDRESS", m_address.toUtf8());
    start();
}

PrivateBus::~PrivateBus()
{
    kill();
    qunsetenv("DBUS_SESSION_BUS_ADDRESS");
}

void PrivateBus::start()
{
    m_daemon.start(QStringLiteral("dbus-daemon"),
        { QStringLiteral("--session"), QStringLiteral("--nofork"), QStringLiteral("--nopidfile"),
            QStringLiteral("--address=") + m_address, QStringLiteral("--print-address=1") });
    if (!m_daemon.waitForReadyRead(10'000))
        throw std::runtime_error("the test's bus did not start");
}

void PrivateBus::kill()
{
    m_daemon.kill();
    m_daemon.waitForFinished();
    QFile::remove(m_folder.filePath(QStringLiteral("bus")));
}

QDBusConnection PrivateBus::peer(const QString &name) const
{
    return QDBusConnection::connectToBus(m_address, name);
}

bool waitFor(const std::function<bool()> &condition)
{
    return QTest::qWaitFor(condition, 10'000);
}

QDBusMessage call(const QDBusConnection &connection, const QString &path, const QString &interface,
    const QString &method, const QVariantList &arguments, const QString &service)
{
    QDBusMessage message = QDBusMessage::createMethodCall(service, path, interface, method);
    message.setArguments(arguments);
    const QDBusPendingCall pending = connection.asyncCall(message);
    waitFor([&pending] { return pending.isFinished(); });
    return pending.reply();
}

} // namespace glimmet
