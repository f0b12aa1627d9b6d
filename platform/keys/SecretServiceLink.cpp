#include "platform/keys/SecretServiceLink.h"

#include "platform/bus/BusCalls.h"
#include "platform/bus/BusDaemon.h"
#include "platform/bus/SessionBus.h"
#include "platform/bus/SessionBusAddress.h"
#include "platform/keys/SecretServiceTypes.h"

#include <QDBusVariant>
#include <QElapsedTimer>

#include <algorithm>

namespace glimmet {
namespace {

using namespace SecretServiceNames;
using std::chrono::milliseconds;

std::optional<QVariantList> answerOf(const QDBusConnection &connection, const QDBusMessage &message,
    const QString &signature, milliseconds timeout)
{
    if (timeout <= milliseconds::zero() || !connection.isConnected())
        return std::nullopt;
    // Qt's timer for it may be late by a twentieth.
    const auto patience = std::max(timeout * 19 / 20, milliseconds(1));
    const QDBusMessage reply = connection.call(message, QDBus::Block, static_cast<int>(patience.count()));
    if (reply.type() != QDBusMessage::ReplyMessage || reply.signature() != signature)
        return std::nullopt;
    return reply.arguments();
}

/// What `step` gives within `patience`. Where there was nothing for all that time, the call knows: timers of
/// D-Bus end a wait up to a tenth early.
template <typename Step> auto within(milliseconds patience, CallBudget::Call &call, Step step)
{
    QElapsedTimer elapsed;
    elapsed.start();
    auto result = step(patience);
    if (!result && patience > milliseconds::zero() && milliseconds(elapsed.elapsed()) >= patience * 9 / 10)
        call.noteSilence();
    return result;
}

} // namespace

SecretServiceLink::SecretServiceLink(const SessionBus &bus, QObject *parent)
    : QObject(parent)
    , m_bus(bus)
    , m_connection(QString())
{
    registerSecretTypes();
}

SecretServiceLink::~SecretServiceLink()
{
    close();
}

bool SecretServiceLink::open(CallBudget::Call &call)
{
    const auto connectWithin = [this](milliseconds patience) { return connectToBus(patience); };
    return within(call.patience(), call, connectWithin) && findService(call) && openSession(call);
}

bool SecretServiceLink::connectToBus(milliseconds timeout)
{
    if (m_connection.isConnected())
        return true;
    close();
    // A bus that does not answer would hold up a new connection far beyond any budget.
    if (!answerOf(
            m_bus.connection(), BusDaemon::method(QStringLiteral("GetId")), QStringLiteral("s"), timeout))
        return false;
    m_connection =
        connectAfresh(QString::fromStdString(sessionBusAddress()), QStringLiteral("glimmet-keys-"));
    if (m_connection.isConnected())
        listen();
    return m_connection.isConnected();
}

void SecretServiceLink::close()
{
    QDBusConnection::disconnectFromBus(m_connection.name());
    m_connection = QDBusConnection(QString());
    m_owner.clear();
    m_session = QDBusObjectPath();
    emit lost();
}

QDBusMessage SecretServiceLink::method(
    const QString &path, const QString &interface, const QString &name) const
{
    return QDBusMessage::createMethodCall(m_owner, path, interface, name);
}

std::optional<QVariantList> SecretServiceLink::ask(
    const QDBusMessage &message, const QString &signature, CallBudget::Call &call) const
{
    return ask(message, signature, call, call.patience());
}

std::optional<QVariantList> SecretServiceLink::ask(const QDBusMessage &message, const QString &signature,
    CallBudget::Call &call, milliseconds patience) const
{
    return within(
        patience, call, [&](milliseconds time) { return answerOf(m_connection, message, signature, time); });
}

bool SecretServiceLink::findService(CallBudget::Call &call)
{
    if (!m_owner.isEmpty())
        return true;
    const QDBusMessage question = BusDaemon::ownerQuestion(service);
    const QString one = QStringLiteral("s");
    std::optional<QVariantList> owner = ask(question, one, call);
    if (!owner) {
        const QDBusMessage start = BusDaemon::startRequest(service);
        if (!ask(start, QStringLiteral("u"), call))
            return false;
        owner = ask(question, one, call);
    }
    if (owner)
        m_owner = owner->first().toString();
    return owner.has_value();
}

bool SecretServiceLink::openSession(CallBudget::Call &call)
{
    if (isOpen())
        return true;
    QDBusMessage message = method(servicePath, serviceInterface, QStringLiteral("OpenSession"));
    message << QStringLiteral("plain") << QVariant::fromValue(QDBusVariant(QString()));
    const auto answer = ask(message, QStringLiteral("vo"), call);
    if (answer)
        m_session = answer->at(1).value<QDBusObjectPath>();
    return answer.has_value();
}

void SecretServiceLink::listen()
{
    // A stranger's signal only has the store looked at once more.
    const QString anyPath;
    const auto onChange = [this](const BusSignal &signal) {
        glimmet::listen(m_connection, signal, this, SIGNAL(changed()));
    };
    onChange({ servicePath, serviceInterface, QStringLiteral("CollectionCreated") });
    onChange({ servicePath, serviceInterface, QStringLiteral("CollectionChanged") });
    onChange({ anyPath, propertiesInterface, QStringLiteral("PropertiesChanged"), { collectionInterface } });
    glimmet::listen(m_connection, { anyPath, promptInterface, QStringLiteral("Completed") }, this,
        SLOT(handlePrompt(QDBusMessage)));
    BusDaemon::followOwner(m_connection, service, this, SLOT(handleOwner(QDBusMessage)));
}

void SecretServiceLink::handlePrompt(const QDBusMessage &completed)
{
    const bool isDismissed = completed.arguments().value(0).toBool();
    emit promptCompleted(completed.path(), isDismissed);
    if (!isDismissed)
        emit changed();
}

void SecretServiceLink::handleOwner(const QDBusMessage &signal)
{
    const auto change = BusDaemon::ownerChange(signal);
    if (!change || change->owner == m_owner)
        return;
    m_owner.clear();
    m_session = QDBusObjectPath();
    emit lost();
    if (!change->owner.isEmpty())
        emit changed();
}

} // namespace glimmet
