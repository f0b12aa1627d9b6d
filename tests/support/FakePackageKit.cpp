#include "tests/support/FakePackageKit.h"

#include <QDBusObjectPath>

namespace glimmet {
namespace {

const QString service = QStringLiteral("org.freedesktop.PackageKit");
const QString servicePath = QStringLiteral("/org/freedesktop/PackageKit");
const QString transactionInterface = QStringLiteral("org.freedesktop.PackageKit.Transaction");
const QString program = QStringLiteral("/usr/bin/glimmet");

using Kind = FakePackageKit::Course::Kind;

} // namespace

FakePackageKit::FakePackageKit(const PrivateBus &bus)
    : m_bus(bus)
{
    comeBack();
}

FakePackageKit::~FakePackageKit()
{
    die();
}

void FakePackageKit::comeBack()
{
    m_connection = QStringLiteral("fake-packagekit-%1").arg(++m_lives);
    QDBusConnection connection = m_bus.peer(m_connection);
    connection.registerVirtualObject(QStringLiteral("/"), this, QDBusConnection::SubPath);
    connection.registerService(service);
}

void FakePackageKit::die()
{
    // Its connection itself closes only after the last copy of it is gone, too late for a next life.
    if (QDBusConnection connection(m_connection); connection.isConnected())
        connection.unregisterService(service);
    leave(m_connection, QStringLiteral("/"));
}

void FakePackageKit::restart()
{
    die();
    comeBack();
}

QString FakePackageKit::introspect(const QString &) const
{
    return {};
}

bool FakePackageKit::handleMessage(const QDBusMessage &message, const QDBusConnection &connection)
{
    const QString method = message.member();
    if (method == u"CreateTransaction") {
        const Course course = courses.value(method);
        const QString path = QStringLiteral("/%1_abcdef").arg(++m_transactions);
        if (course.kind == Kind::Works || course.kind == Kind::DiesAfterwards)
            connection.send(message.createReply(QVariant::fromValue(QDBusObjectPath(path))));
        if (course.kind == Kind::Refuses)
            connection.send(message.createErrorReply(course.details, QStringLiteral("no")));
        if (course.kind == Kind::Hangs)
            m_heldMethod = method;
        if (course.kind == Kind::Dies)
            QMetaObject::invokeMethod(this, [this] { die(); }, Qt::QueuedConnection);
        if (course.kind == Kind::DiesAfterwards)
            QMetaObject::invokeMethod(this, [this] { restart(); }, Qt::QueuedConnection);
        return true;
    }
    if (method == u"SetHints") {
        m_hints.insert(message.path(), message.arguments().value(0).toStringList());
        return connection.send(message.createReply());
    }
    m_calls.append(method);
    if (method == u"Cancel") {
        connection.send(message.createReply());
        if (message.path() == m_held && courses.value(method).kind != Course::Kind::Hangs)
            finish(3);
        return true;
    }
    start(message);
    return true;
}

void FakePackageKit::start(const QDBusMessage &message)
{
    m_hadOneMethodEach = m_hadOneMethodEach && !m_used.contains(message.path());
    m_used.append(message.path());
    m_hintsOfMethods.insert(message.member(), m_hints.value(message.path()));
    m_arguments.insert(message.member(), message.arguments());
    // From the loop: a connection cannot be left from within its own call.
    QMetaObject::invokeMethod(this, [this, message] { work(message); }, Qt::QueuedConnection);
}

void FakePackageKit::work(const QDBusMessage &message)
{
    const QString path = message.path();
    const Course course = courses.value(message.member());
    if (course.kind == Kind::Dies)
        return die();
    QDBusConnection connection(m_connection);
    if (course.kind == Kind::Refuses) {
        connection.send(message.createErrorReply(course.details, QStringLiteral("no")));
        return;
    }
    connection.send(message.createReply());
    m_held = path;
    m_heldMethod = message.member();
    if (course.kind == Kind::Hangs)
        return;
    if (course.kind == Kind::Fails) {
        signal(path, QStringLiteral("ErrorCode"), { course.code, course.details });
        return finish(course.exit);
    }
    answer(path, message.member());
    if (course.kind == Kind::Works)
        return finish(1);
    restart();
}

void FakePackageKit::answer(const QString &path, const QString &method)
{
    constexpr uint isInstalled = 1;
    constexpr uint isAvailable = 2;
    const bool isOwner = m_arguments.value(method).value(1).toStringList().contains(program);
    if (method == u"SearchFiles" && isOwner)
        package(path, isInstalled, installed, QStringLiteral("installed:test"));
    if (method == u"GetUpdates" && !offered.isEmpty())
        package(path, offeredInfo, offered, QStringLiteral("test"));
    if (method == u"GetUpdateDetail")
        signal(path, QStringLiteral("UpdateDetail"),
            { QString(), QStringList(), QStringList(), QStringList(), QStringList(), QStringList(), 1U,
                QString(), changes, 0U, QString(), QString() });
    if (method == u"UpdatePackages" && installs)
        installed = offered;
    if (method == u"Resolve") {
        package(path, isAvailable, offered, QStringLiteral("test"));
        package(path, isInstalled, installed, QStringLiteral("installed:test"));
    }
}

void FakePackageKit::package(
    const QString &path, uint info, const QString &version, const QString &data) const
{
    const QString id = QStringLiteral("glimmet;%1;amd64;%2").arg(version, data);
    constexpr uint severity = 3U << 16U; // Above the kind of an update some backends tell how urgent it is.
    signal(path, QStringLiteral("Package"), { info | severity, id, QStringLiteral("one text") });
}

void FakePackageKit::signal(const QString &path, const QString &name, const QVariantList &values) const
{
    QDBusMessage message = QDBusMessage::createSignal(path, transactionInterface, name);
    message.setArguments(values);
    QDBusConnection(m_connection).send(message);
}

void FakePackageKit::tell(const QVariantMap &properties) const
{
    QDBusMessage message = QDBusMessage::createSignal(
        m_held, QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("PropertiesChanged"));
    message << transactionInterface << properties << QStringList();
    QDBusConnection(m_connection).send(message);
}

void FakePackageKit::finish(uint exit) const
{
    signal(m_held, QStringLiteral("Finished"), { exit, 12U });
}

} // namespace glimmet
