#include "tests/platform/keys/FakeSecretService.h"

#include "platform/keys/SecretServiceTypes.h"

#include <QDBusConnectionInterface>
#include <QDBusVariant>

#include <thread>
#include <utility>

namespace glimmet {
namespace {

using namespace SecretServiceNames;
using Paths = QList<QDBusObjectPath>;

const QString itemFolder = QStringLiteral("/org/freedesktop/secrets/collection/login/");
const QDBusObjectPath collection(QStringLiteral("/org/freedesktop/secrets/collection/login"));
const QDBusObjectPath prompt(QStringLiteral("/org/freedesktop/secrets/prompt/p1"));
const QDBusObjectPath none(QStringLiteral("/"));

QString accountOf(const QString &itemPath)
{
    return itemPath.mid(itemFolder.size());
}

QDBusObjectPath pathOf(const QString &account)
{
    return QDBusObjectPath(itemFolder + account);
}

/// What is answered instead of a change that has to wait for its prompt.
QVariantList promptInsteadOf(const QString &method)
{
    const QVariant path = QVariant::fromValue(prompt);
    if (method == u"CreateItem")
        return { QVariant::fromValue(none), path };
    if (method == u"Unlock")
        return { QVariant::fromValue(Paths()), path };
    return { path };
}

} // namespace

FakeSecretService::FakeSecretService(const PrivateBus &bus, int lives)
{
    registerSecretTypes();
    for (int life = 0; life < lives; ++life) {
        m_connections.append(QStringLiteral("fake-secrets-%1").arg(life));
        bus.peer(m_connections.last()).registerVirtualObject(servicePath, this, QDBusConnection::SubPath);
    }
    moveToThread(&m_thread);
    m_thread.start();
    // The bus hands the name on to the next life by itself.
    for (const QString &name : std::as_const(m_connections)) {
        QDBusConnectionInterface *daemon = QDBusConnection(name).interface();
        daemon->registerService(service, QDBusConnectionInterface::QueueService);
    }
}

FakeSecretService::~FakeSecretService()
{
    m_thread.quit();
    m_thread.wait();
    for (const QString &name : std::as_const(m_connections))
        leave(name, servicePath);
}

void FakeSecretService::failAt(const QString &method, Fault fault)
{
    const QMutexLocker lock(&m_mutex);
    m_failingMethod = method;
    m_fault = fault;
}

void FakeSecretService::failAfter(int count, Fault fault)
{
    const QMutexLocker lock(&m_mutex);
    m_callsBeforeFault = count;
    m_fault = fault;
}

void FakeSecretService::lock()
{
    const QMutexLocker lock(&m_mutex);
    m_isLocked = true;
}

void FakeSecretService::lockItems()
{
    const QMutexLocker lock(&m_mutex);
    m_hasLockedItems = true;
}

void FakeSecretService::lockItemsBefore(const QString &method)
{
    const QMutexLocker lock(&m_mutex);
    m_lockingMethod = method;
}

void FakeSecretService::setDelay(std::chrono::milliseconds delay)
{
    const QMutexLocker lock(&m_mutex);
    m_delay = delay;
}

QStringList FakeSecretService::calls() const
{
    const QMutexLocker lock(&m_mutex);
    QStringList methods;
    for (const Recorded &call : m_calls)
        methods.append(call.method);
    return methods;
}

QStringList FakeSecretService::callersOf(const QString &method) const
{
    const QMutexLocker lock(&m_mutex);
    QStringList callers;
    for (const Recorded &call : m_calls) {
        if (call.method == method)
            callers.append(call.caller);
    }
    return callers;
}

QString FakeSecretService::promptWindow() const
{
    const QMutexLocker lock(&m_mutex);
    return m_promptWindow;
}

QHash<QString, QByteArray> FakeSecretService::items() const
{
    const QMutexLocker lock(&m_mutex);
    return m_items;
}

void FakeSecretService::put(const QString &account, const QByteArray &value)
{
    const QMutexLocker lock(&m_mutex);
    m_items.insert(account, value);
}

QString FakeSecretService::introspect(const QString &) const
{
    return {};
}

bool FakeSecretService::handleMessage(const QDBusMessage &message, const QDBusConnection &connection)
{
    const QMutexLocker lock(&m_mutex);
    m_calls.append({ message.member(), message.service() });
    std::this_thread::sleep_for(m_delay);
    m_hasLockedItems = m_hasLockedItems || message.member() == m_lockingMethod;
    if (const std::optional<Fault> fault = takeFault(message.member()))
        fail(*fault, message, connection);
    else
        connection.send(message.createReply(answer(message)));
    return true;
}

std::optional<FakeSecretService::Fault> FakeSecretService::takeFault(const QString &method)
{
    const bool isNamed = method == m_failingMethod;
    const bool isCounted = m_callsBeforeFault >= 0 && m_callsBeforeFault-- == 0;
    if (!isNamed && !isCounted)
        return std::nullopt;
    m_failingMethod.clear();
    return m_fault;
}

void FakeSecretService::fail(Fault fault, const QDBusMessage &message, const QDBusConnection &connection)
{
    switch (fault) {
    case Fault::Refuses:
        connection.send(message.createErrorReply(QDBusError::Failed, QStringLiteral("not today")));
        return;
    case Fault::Hangs:
        answer(message);
        return;
    case Fault::Dies:
        QDBusConnection::disconnectFromBus(connection.name());
        return;
    case Fault::Babbles:
        connection.send(message.createReply({ 1, QStringLiteral("two") }));
        return;
    case Fault::Prompts:
        m_prompted = message;
        connection.send(message.createReply(promptInsteadOf(message.member())));
        return;
    }
}

QVariantList FakeSecretService::answer(const QDBusMessage &message)
{
    const QString method = message.member();
    const QVariantList arguments = message.arguments();
    if (method == u"OpenSession")
        return { QVariant::fromValue(QDBusVariant(QString())), QVariant::fromValue(collection) };
    if (method == u"ReadAlias")
        return { QVariant::fromValue(collection) };
    if (method == u"Get")
        return { QVariant::fromValue(QDBusVariant(isLocked(arguments.value(0).toString()))) };
    if (method == u"Unlock") {
        m_isLocked = false;
        m_hasLockedItems = false;
        return { QVariant::fromValue(Paths{ collection }), QVariant::fromValue(none) };
    }
    if (method == u"SearchItems")
        return search(qdbus_cast<SecretAttributes>(arguments.value(0)));
    if (method == u"GetSecret") {
        // As KWallet does: a locked item is one of nothing.
        const QByteArray value = m_hasLockedItems ? QByteArray() : m_items.value(accountOf(message.path()));
        const SecretOfItem secret{ collection, {}, value, {} };
        return { QVariant::fromValue(secret) };
    }
    if (method == u"Delete") {
        m_items.remove(accountOf(message.path()));
        return { QVariant::fromValue(none) };
    }
    if (method == u"CreateItem")
        return create(
            qdbus_cast<QVariantMap>(arguments.value(0)), qdbus_cast<SecretOfItem>(arguments.value(1)));
    if (method == u"Prompt" && m_prompted) {
        m_promptWindow = arguments.value(0).toString();
        answer(*m_prompted);
    }
    return {};
}

bool FakeSecretService::isLocked(const QString &interface) const
{
    return interface == itemInterface ? m_hasLockedItems : m_isLocked;
}

QVariantList FakeSecretService::search(const SecretAttributes &attributes) const
{
    Paths found;
    for (auto item = m_items.cbegin(); item != m_items.cend(); ++item) {
        if (attributes.value(QStringLiteral("account"), item.key()) == item.key())
            found.append(pathOf(item.key()));
    }
    const QVariant items = QVariant::fromValue(found);
    const QVariant noItems = QVariant::fromValue(Paths());
    return m_hasLockedItems ? QVariantList{ noItems, items } : QVariantList{ items, noItems };
}

QVariantList FakeSecretService::create(const QVariantMap &properties, const SecretOfItem &secret)
{
    const QVariant attributes = properties.value(itemInterface + QStringLiteral(".Attributes"));
    const QString account = qdbus_cast<SecretAttributes>(attributes).value(QStringLiteral("account"));
    m_items.insert(account, secret.value);
    return { QVariant::fromValue(pathOf(account)), QVariant::fromValue(none) };
}

} // namespace glimmet
