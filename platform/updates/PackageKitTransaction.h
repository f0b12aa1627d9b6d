#pragma once

#include "platform/SingleShot.h"
#include "platform/updates/PackageKit.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingReply>
#include <QObject>

#include <chrono>

namespace glimmet {

/// One transaction with PackageKit, from its creation to its end. Whatever happens to the service or the bus,
/// it ends. Destroyed on its way, it is abandoned. Main thread, which it never keeps waiting.
class PackageKitTransaction final : public QObject {
    Q_OBJECT

public:
    /// Ends as timed out when for `patience` nothing is heard of it, unless the user is being asked. `timers`
    /// outlives what it does until it ends.
    PackageKitTransaction(QDBusConnection systemBus, PackageKitCall call, Timers &timers,
        std::chrono::milliseconds patience, QObject *parent = nullptr);
    ~PackageKitTransaction() override;

    void start();
    /// Asks the service to stop. `finished` follows, and may also tell that it was too late.
    void cancel();
    /// Asks the service to stop and ends at once, without `finished`.
    void abandon();

signals:
    void progressed(const glimmet::TransactionProgress &progress);
    /// Once, from the event loop. The receiver may destroy the transaction later in the same turn.
    void finished(const glimmet::TransactionResult &result);

private slots:
    void handleSignal(const QDBusMessage &signal);
    void handleProperties(const QDBusMessage &change);
    void handleOwner(const QDBusMessage &signal);
    void handleDisconnected();

private:
    using Use = void (PackageKitTransaction::*)(const QDBusMessage &reply);

    void send(const QDBusMessage &message, Use use);
    QDBusMessage method(const QString &name) const;
    void handleFound(const QDBusPendingReply<QString> &owner);
    void handleCreated(const QDBusMessage &reply);
    void handleHinted(const QDBusMessage &reply);
    void handleStarted(const QDBusMessage &reply);
    void handleError(const QDBusMessage &error);
    void handleSilence();
    void listen();
    void noteLife();
    void noteProperties(const QVariantMap &properties);
    void finishAs(uint exit);
    void finishLater(TransactionEnd end);
    void finish(TransactionEnd end);

    QDBusConnection m_bus;
    PackageKitCall m_call;
    SingleShot m_silence;
    QString m_owner; ///< the service's unique name, so that no other program can speak for it
    QString m_path; ///< empty until it is created
    TransactionResult m_result;
    TransactionProgress m_progress;
    bool m_isUserAsked = false;
    bool m_hasEnded = false;
};

} // namespace glimmet
