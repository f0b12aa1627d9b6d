#include "tests/support/SecretServiceDaemon.h"

#include "platform/keys/SecretServiceTypes.h"

#include <QDBusVariant>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QThread>

#include <csignal>
#include <stdexcept>

namespace glimmet {
namespace {

using namespace SecretServiceNames;

const QString internalInterface = QStringLiteral("org.gnome.keyring.InternalUnsupportedGuiltRiddenInterface");
const QString loginCollection = QStringLiteral("/org/freedesktop/secrets/collection/login");
const QString busInterface = QStringLiteral("org.freedesktop.DBus");

/// What the bus runs for the name; with only its own home in the environment.
const QString serviceFile = QStringLiteral(R"([D-BUS Service]
Name=org.freedesktop.secrets
Exec=/usr/bin/env HOME=%1 XDG_DATA_HOME=%1 XDG_RUNTIME_DIR=%1 gnome-keyring-daemon --foreground --components=secrets
)");

void waitUntil(const std::function<bool()> &condition, const char *what)
{
    QElapsedTimer elapsed;
    elapsed.start();
    while (!condition()) {
        if (elapsed.hasExpired(10'000))
            throw std::runtime_error(what);
        QThread::msleep(2);
    }
}

void writeFile(const QString &path, const QByteArray &content)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        throw std::runtime_error("a file of the test could not be written");
}

QVariantMap propertiesOf(const QString &prefix, const QString &label)
{
    return { { prefix + QStringLiteral(".Label"), label } };
}

} // namespace

SecretServiceDaemon::SecretServiceDaemon(Activation activation)
    : m_bus(makeServicesFolder(activation))
    , m_peer(QString())
{
    registerSecretTypes();
    connectPeer();
}

SecretServiceDaemon::~SecretServiceDaemon()
{
    kill();
    QDBusConnection::disconnectFromBus(m_peer.name());
}

void SecretServiceDaemon::start(Keyring keyring, const QString &prompter)
{
    connectPeer();
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char *folder : { "HOME", "XDG_DATA_HOME", "XDG_RUNTIME_DIR" })
        environment.insert(QString::fromLatin1(folder), m_home.path());
    environment.insert(QStringLiteral("GNOME_KEYRING_TEST_PROMPTER"), prompter);
    m_daemon.setProcessEnvironment(environment);
    QStringList arguments{ QStringLiteral("--foreground"), QStringLiteral("--components=secrets") };
    if (keyring == Keyring::Unlocked)
        arguments.append(QStringLiteral("--unlock"));
    // From a file: writing to the process would take an event loop.
    writeFile(m_home.filePath(QStringLiteral("password")), password);
    m_daemon.setStandardInputFile(m_home.filePath(QStringLiteral("password")));
    m_daemon.start(QStringLiteral("gnome-keyring-daemon"), arguments);
    waitUntil([this] { return isRunning(); }, "gnome-keyring did not start");
}

void SecretServiceDaemon::kill()
{
    signalProcess(SIGKILL);
    m_daemon.waitForFinished();
    waitUntil([this] { return !isRunning(); }, "gnome-keyring did not end");
}

void SecretServiceDaemon::halt() const
{
    signalProcess(SIGSTOP);
}

void SecretServiceDaemon::goOn() const
{
    signalProcess(SIGCONT);
}

bool SecretServiceDaemon::isRunning() const
{
    return processId() > 0;
}

void SecretServiceDaemon::lock() const
{
    const QList<QDBusObjectPath> collections{ QDBusObjectPath(loginCollection) };
    ask(servicePath, serviceInterface, QStringLiteral("Lock"), { QVariant::fromValue(collections) });
}

void SecretServiceDaemon::unlock() const
{
    ask(servicePath, internalInterface, QStringLiteral("UnlockWithMasterPassword"),
        { QVariant::fromValue(QDBusObjectPath(loginCollection)), QVariant::fromValue(secret(password)) });
}

void SecretServiceDaemon::makeDefaultCollection() const
{
    const QVariantList made = ask(servicePath, internalInterface, QStringLiteral("CreateWithMasterPassword"),
        { propertiesOf(collectionInterface, QStringLiteral("Login")),
            QVariant::fromValue(secret(password)) });
    ask(servicePath, serviceInterface, QStringLiteral("SetAlias"), { QStringLiteral("default"), made.at(0) });
}

void SecretServiceDaemon::put(const SecretAttributes &attributes, const QByteArray &value) const
{
    QVariantMap properties = propertiesOf(itemInterface, QStringLiteral("made elsewhere"));
    properties.insert(itemInterface + QStringLiteral(".Attributes"), QVariant::fromValue(attributes));
    ask(loginCollection, collectionInterface, QStringLiteral("CreateItem"),
        { properties, QVariant::fromValue(secret(value)), false });
}

QList<StoredItem> SecretServiceDaemon::items(const SecretAttributes &attributes) const
{
    QList<StoredItem> items;
    const QVariantList found = ask(
        servicePath, serviceInterface, QStringLiteral("SearchItems"), { QVariant::fromValue(attributes) });
    for (const QDBusObjectPath &path : qdbus_cast<QList<QDBusObjectPath>>(found.at(0))) {
        const auto property = [&](const QString &name) {
            const QVariantList value =
                ask(path.path(), propertiesInterface, QStringLiteral("Get"), { itemInterface, name });
            return value.at(0).value<QDBusVariant>().variant();
        };
        const auto stored = qdbus_cast<SecretOfItem>(ask(
            path.path(), itemInterface, QStringLiteral("GetSecret"), { QVariant::fromValue(openSession()) })
                .at(0));
        items.append({ property(QStringLiteral("Label")).toString(),
            qdbus_cast<SecretAttributes>(property(QStringLiteral("Attributes"))), stored.value,
            stored.contentType });
    }
    return items;
}

QVariantList SecretServiceDaemon::ask(
    const QString &path, const QString &interface, const QString &method, const QVariantList &arguments) const
{
    QDBusMessage message = QDBusMessage::createMethodCall(service, path, interface, method);
    message.setArguments(arguments);
    message.setAutoStartService(false);
    const QDBusMessage reply = m_peer.call(message);
    if (reply.type() != QDBusMessage::ReplyMessage)
        throw std::runtime_error(reply.errorMessage().toStdString());
    return reply.arguments();
}

QString SecretServiceDaemon::makeServicesFolder(Activation activation) const
{
    const QString folder = m_home.filePath(QStringLiteral("services"));
    QDir().mkpath(folder);
    if (activation == Activation::On)
        writeFile(folder + QStringLiteral("/org.freedesktop.secrets.service"),
            serviceFile.arg(m_home.path()).toUtf8());
    return folder;
}

QDBusObjectPath SecretServiceDaemon::openSession() const
{
    const QVariantList opened = ask(servicePath, serviceInterface, QStringLiteral("OpenSession"),
        { QStringLiteral("plain"), QVariant::fromValue(QDBusVariant(QString())) });
    return opened.at(1).value<QDBusObjectPath>();
}

void SecretServiceDaemon::connectPeer()
{
    if (m_peer.isConnected())
        return;
    QDBusConnection::disconnectFromBus(m_peer.name());
    m_peer = m_bus.peer(QStringLiteral("another-program-%1").arg(++m_peerCount) + m_home.path());
}

SecretOfItem SecretServiceDaemon::secret(const QByteArray &value) const
{
    return { openSession(), {}, value, QStringLiteral("text/plain") };
}

pid_t SecretServiceDaemon::processId() const
{
    QDBusMessage message = QDBusMessage::createMethodCall(busInterface,
        QStringLiteral("/org/freedesktop/DBus"), busInterface, QStringLiteral("GetConnectionUnixProcessID"));
    message << service;
    return static_cast<pid_t>(m_peer.call(message).arguments().value(0).toUInt());
}

void SecretServiceDaemon::signalProcess(int signal) const
{
    const pid_t process = processId();
    if (process > 0)
        ::kill(process, signal);
}

SecretAttributes attributesOf(const QString &account)
{
    return { { QStringLiteral("service"), QStringLiteral("me.kerno.glimmet") },
        { QStringLiteral("account"), account } };
}

} // namespace glimmet
