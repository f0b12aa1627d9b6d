#include "tests/support/PrivateBus.h"

#include <QCoreApplication>
#include <QDBusPendingCall>
#include <QDeadlineTimer>
#include <QFile>
#include <QTimer>

#include <csignal>
#include <stdexcept>

namespace glimmet {
namespace {

/// Everybody may do everything, and nothing is started but what is in the folder. The configuration of a
/// user's session would start whatever desktop the machine has.
const QString configuration = QStringLiteral(R"xml(<busconfig>
  <type>session</type>
  <listen>%1</listen>
  <servicedir>%2</servicedir>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
</busconfig>
)xml");

} // namespace

PrivateBus::PrivateBus(const QString &servicesFolder)
    : m_address(QStringLiteral("unix:path=") + m_folder.filePath(QStringLiteral("bus")))
{
    configure(servicesFolder.isEmpty() ? m_folder.filePath(QStringLiteral("no-services")) : servicesFolder);
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
        { QStringLiteral("--config-file=") + configurationFile(), QStringLiteral("--nofork"),
            QStringLiteral("--nopidfile"), QStringLiteral("--print-address=1") });
    if (!m_daemon.waitForReadyRead(10'000))
        throw std::runtime_error("the test's bus did not start");
}

void PrivateBus::kill()
{
    m_daemon.kill();
    m_daemon.waitForFinished();
    QFile::remove(m_folder.filePath(QStringLiteral("bus")));
}

void PrivateBus::halt() const
{
    ::kill(static_cast<pid_t>(m_daemon.processId()), SIGSTOP);
}

void PrivateBus::goOn() const
{
    ::kill(static_cast<pid_t>(m_daemon.processId()), SIGCONT);
}

QDBusConnection PrivateBus::peer(const QString &name) const
{
    return QDBusConnection::connectToBus(m_address, name);
}

void PrivateBus::configure(const QString &servicesFolder) const
{
    QFile file(configurationFile());
    if (!file.open(QIODevice::WriteOnly))
        throw std::runtime_error("the test's bus could not be configured");
    file.write(configuration.arg(m_address, servicesFolder).toUtf8());
}

QString PrivateBus::configurationFile() const
{
    return m_folder.filePath(QStringLiteral("bus.conf"));
}

void leave(const QString &name, const QString &path)
{
    QDBusConnection(name).unregisterObject(path, QDBusConnection::UnregisterTree);
    QDBusConnection::disconnectFromBus(name);
}

bool waitFor(const std::function<bool()> &condition)
{
    const QDeadlineTimer patience(10'000);
    // An event wakes the loop at once; what another thread or program has done is seen by looking again.
    QTimer again;
    again.start(10);
    while (!condition()) {
        if (patience.hasExpired())
            return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    return true;
}

void settle(const QDBusConnection &connection)
{
    constexpr int answersToAnswers = 10;
    const QString daemon = QStringLiteral("org.freedesktop.DBus");
    for (int i = 0; i < answersToAnswers; ++i)
        call(
            connection, QStringLiteral("/org/freedesktop/DBus"), daemon, QStringLiteral("GetId"), {}, daemon);
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
