#pragma once

#include "platform/SingleShot.h"
#include "platform/updates/PackageKit.h"

#include <QDBusConnection>
#include <QObject>

#include <chrono>
#include <functional>
#include <memory>

namespace glimmet {

class PackageKitTransaction;
class SystemBus;

/// Runs one transaction after the other, and has a connection to the bus only as long as it is needed. Main
/// thread, which it never keeps waiting.
class PackageKitClient final : public QObject {
    Q_OBJECT

public:
    using Completion = std::function<void(const TransactionResult &)>;

    /// `bus` and `timers` outlive the client. `patience`: how long nothing may be heard before it counts as a
    /// failure.
    PackageKitClient(
        SystemBus &bus, Timers &timers, std::chrono::milliseconds patience, QObject *parent = nullptr);
    ~PackageKitClient() override;

    /// Takes the place of one that still runs. `done` is called once, from the event loop, unless the
    /// transaction is abandoned.
    void run(const PackageKitCall &call, Completion done);
    /// Asks the service to stop what runs; its completion follows.
    void cancel();
    /// Cancels what runs without waiting for its end, and leaves the bus.
    void abandon();

signals:
    void progressed(const glimmet::TransactionProgress &progress);

private:
    void start(const QDBusConnection &bus, const PackageKitCall &call);
    void finish(const TransactionResult &result);
    void forgetTransaction();

    SystemBus &m_bus;
    Timers &m_timers;
    std::chrono::milliseconds m_patience;
    SingleShot m_opening; ///< runs while the bus is being connected to
    Completion m_done;
    std::unique_ptr<QObject> m_use; ///< the receiver of what is under way
    PackageKitTransaction *m_transaction = nullptr;
};

} // namespace glimmet
