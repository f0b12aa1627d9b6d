#include "platform/updates/PackageKitTransaction.h"

#include "platform/bus/BusCalls.h"
#include "platform/bus/BusDaemon.h"
#include "platform/bus/BusProperties.h"

#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QVariantMap>

#include <utility>

namespace glimmet {
namespace {

const QString service = QStringLiteral("org.freedesktop.PackageKit");
const QString servicePath = QStringLiteral("/org/freedesktop/PackageKit");
const QString transactionInterface = QStringLiteral("org.freedesktop.PackageKit.Transaction");

/// The words around what the service says are English, too.
const QString englishLocale = QStringLiteral("locale=C.UTF-8");

constexpr uint greatestPercentage = 100; // 101 stands for an unknown one.
constexpr uint kindMask = 0xffff;

enum Exit : uint { Success = 1, CancelledByUser = 3, KeyRequired = 4, NeedUntrusted = 8 };
enum Status : uint { WaitingForAuthorization = 31 };
enum Error : uint { TransactionCancelled = 17, MissingSignature = 31, NotAuthorized = 48 };

QStringList hintsFor(Asking asking)
{
    const bool isUserThere = asking == Asking::User;
    return { isUserThere ? QStringLiteral("interactive=true") : QStringLiteral("interactive=false"),
        isUserThere ? QStringLiteral("background=false") : QStringLiteral("background=true"), englishLocale };
}

bool isRefusal(const QString &errorName)
{
    return errorName.endsWith(u".AccessDenied") || errorName.endsWith(u".RefusedByPolicy");
}

/// There is no such service, or it cannot be started.
bool isMissing(const QString &errorName)
{
    return errorName.endsWith(u".ServiceUnknown") || errorName.endsWith(u".NameHasNoOwner")
        || errorName.contains(u".Spawn.") || errorName.endsWith(u".Disconnected");
}

bool isGone(const QString &errorName)
{
    return isMissing(errorName) || errorName.endsWith(u".NoReply");
}

} // namespace

PackageKitTransaction::PackageKitTransaction(QDBusConnection systemBus, PackageKitCall call, Timers &timers,
    std::chrono::milliseconds patience, QObject *parent)
    : QObject(parent)
    , m_bus(std::move(systemBus))
    , m_call(std::move(call))
    , m_silence(timers, patience, [this] { handleSilence(); })
{
}

PackageKitTransaction::~PackageKitTransaction()
{
    abandon();
}

void PackageKitTransaction::start()
{
    // Calls of a connection that was never made are not even answered with an error.
    if (!m_bus.isConnected())
        return finishLater(TransactionEnd::ServiceMissing);
    noteLife();
    listenForLoss(m_bus, this, SLOT(handleDisconnected()));
    BusDaemon::findOwner(
        m_bus, service, this, [this](const QDBusPendingReply<QString> &owner) { handleFound(owner); });
}

void PackageKitTransaction::cancel()
{
    if (m_hasEnded)
        return;
    // What is created later and never used, the service forgets by itself.
    if (m_path.isEmpty())
        return finishLater(TransactionEnd::Cancelled);
    m_bus.send(method(QStringLiteral("Cancel")));
    m_silence.start(); // Also while the user is being asked: the program waits for that answer no more.
}

void PackageKitTransaction::abandon()
{
    if (std::exchange(m_hasEnded, true))
        return;
    m_silence.stop();
    if (!m_path.isEmpty())
        m_bus.send(method(QStringLiteral("Cancel")));
}

void PackageKitTransaction::send(const QDBusMessage &message, Use use)
{
    const auto take = [this, use](const QDBusPendingCall &answered) {
        if (m_hasEnded)
            return;
        const QDBusMessage reply = answered.reply();
        (this->*(reply.type() == QDBusMessage::ReplyMessage ? use : &PackageKitTransaction::handleError))(
            reply);
    };
    // The transaction's own timer knows what is too long.
    callLater(m_bus, message, this, take, withoutLimit);
}

void PackageKitTransaction::handleFound(const QDBusPendingReply<QString> &owner)
{
    if (m_hasEnded)
        return;
    if (owner.isError())
        return handleError(owner.reply());
    noteLife();
    m_owner = owner.value();
    BusDaemon::followOwner(m_bus, m_owner, this, SLOT(handleOwner(QDBusMessage)));
    send(QDBusMessage::createMethodCall(m_owner, servicePath, service, QStringLiteral("CreateTransaction")),
        &PackageKitTransaction::handleCreated);
}

QDBusMessage PackageKitTransaction::method(const QString &name) const
{
    return QDBusMessage::createMethodCall(m_owner, m_path, transactionInterface, name);
}

void PackageKitTransaction::handleCreated(const QDBusMessage &reply)
{
    noteLife();
    m_path = reply.arguments().value(0).value<QDBusObjectPath>().path();
    if (m_path.isEmpty())
        return finish(TransactionEnd::Failed);
    listen();
    QDBusMessage hints = method(QStringLiteral("SetHints"));
    hints << hintsFor(m_call.asking);
    send(hints, &PackageKitTransaction::handleHinted);
}

void PackageKitTransaction::listen()
{
    const QString anySignal;
    glimmet::listen(
        m_bus, { m_path, transactionInterface, anySignal }, this, SLOT(handleSignal(QDBusMessage)));
    glimmet::listen(m_bus, { m_path, propertiesInterface, QStringLiteral("PropertiesChanged") }, this,
        SLOT(handleProperties(QDBusMessage)));
}

void PackageKitTransaction::handleHinted(const QDBusMessage &)
{
    QDBusMessage start = method(m_call.method);
    start.setArguments(m_call.arguments);
    send(start, &PackageKitTransaction::handleStarted);
}

void PackageKitTransaction::handleStarted(const QDBusMessage &)
{
    noteLife();
}

void PackageKitTransaction::handleError(const QDBusMessage &error)
{
    const QString name = error.errorName();
    m_result.details = error.errorMessage();
    if (isRefusal(name))
        m_result.errorCode = Error::NotAuthorized;
    if (m_owner.isEmpty() && isMissing(name))
        return finish(TransactionEnd::ServiceMissing);
    finish(isGone(name) ? TransactionEnd::ServiceGone : TransactionEnd::Failed);
}

void PackageKitTransaction::handleSignal(const QDBusMessage &signal)
{
    if (m_hasEnded || signal.service() != m_owner)
        return;
    noteLife();
    const QVariantList values = signal.arguments();
    if (signal.member() == u"Package") {
        if (const auto id = packageIdFrom(values.value(1).toString()))
            m_result.packages.append({ values.value(0).toUInt() & kindMask, *id });
    } else if (signal.member() == u"ErrorCode") {
        m_result.errorCode = values.value(0).toUInt();
        m_result.details = values.value(1).toString();
    } else if (signal.member() == u"UpdateDetail") {
        m_result.changes = changesFrom(values.value(7).toString(), values.value(8).toString());
    } else if (signal.member() == u"Finished") {
        finishAs(values.value(0).toUInt());
    }
}

void PackageKitTransaction::handleProperties(const QDBusMessage &change)
{
    if (m_hasEnded || change.service() != m_owner)
        return;
    noteProperties(qdbus_cast<QVariantMap>(change.arguments().value(1)));
    noteLife();
}

void PackageKitTransaction::noteProperties(const QVariantMap &properties)
{
    const TransactionProgress before = m_progress;
    if (const auto status = properties.constFind(QStringLiteral("Status")); status != properties.cend())
        m_isUserAsked = status->toUInt() == Status::WaitingForAuthorization;
    if (const auto allowed = properties.constFind(QStringLiteral("AllowCancel"));
        allowed != properties.cend())
        m_progress.isCancellable = allowed->toBool();
    if (const auto part = properties.constFind(QStringLiteral("Percentage")); part != properties.cend()) {
        const uint value = part->toUInt();
        m_progress.percentage =
            value > greatestPercentage ? std::nullopt : std::optional(static_cast<int>(value));
    }
    if (m_progress != before)
        emit progressed(m_progress);
}

void PackageKitTransaction::handleOwner(const QDBusMessage &signal)
{
    const auto change = BusDaemon::ownerChange(signal);
    if (change && change->name == m_owner && change->owner.isEmpty())
        finish(TransactionEnd::ServiceGone);
}

void PackageKitTransaction::handleDisconnected()
{
    finish(m_path.isEmpty() ? TransactionEnd::ServiceMissing : TransactionEnd::ServiceGone);
}

void PackageKitTransaction::handleSilence()
{
    cancel();
    finish(TransactionEnd::TimedOut);
}

void PackageKitTransaction::noteLife()
{
    if (m_isUserAsked)
        m_silence.stop();
    else
        m_silence.start();
}

void PackageKitTransaction::finishAs(uint exit)
{
    if (exit == Exit::Success)
        return finish(TransactionEnd::Succeeded);
    if (exit == Exit::CancelledByUser || m_result.errorCode == Error::TransactionCancelled)
        return finish(TransactionEnd::Cancelled);
    const bool isUntrusted = exit == Exit::KeyRequired || exit == Exit::NeedUntrusted;
    if (isUntrusted && m_result.errorCode == 0)
        m_result.errorCode = Error::MissingSignature;
    finish(TransactionEnd::Failed);
}

void PackageKitTransaction::finishLater(TransactionEnd end)
{
    QMetaObject::invokeMethod(this, [this, end] { finish(end); }, Qt::QueuedConnection);
}

void PackageKitTransaction::finish(TransactionEnd end)
{
    if (std::exchange(m_hasEnded, true))
        return;
    m_silence.stop();
    m_result.end = end;
    emit finished(m_result);
}

} // namespace glimmet
