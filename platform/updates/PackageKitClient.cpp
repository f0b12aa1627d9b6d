#include "platform/updates/PackageKitClient.h"

#include "platform/bus/SystemBus.h"
#include "platform/updates/PackageKitTransaction.h"

#include <utility>

namespace glimmet {

PackageKitClient::PackageKitClient(
    SystemBus &bus, Timers &timers, std::chrono::milliseconds patience, QObject *parent)
    : QObject(parent)
    , m_bus(bus)
    , m_timers(timers)
    , m_patience(patience)
    , m_opening(timers, patience, [this] { finish({ .end = TransactionEnd::TimedOut }); })
{
}

PackageKitClient::~PackageKitClient()
{
    abandon();
}

void PackageKitClient::run(const PackageKitCall &call, Completion done)
{
    forgetTransaction();
    m_done = std::move(done);
    m_use = std::make_unique<QObject>();
    m_opening.start();
    m_bus.open([this, call](const QDBusConnection &bus) { start(bus, call); });
}

void PackageKitClient::start(const QDBusConnection &bus, const PackageKitCall &call)
{
    m_opening.stop();
    m_transaction = new PackageKitTransaction(bus, call, m_timers, m_patience, m_use.get());
    connect(m_transaction, &PackageKitTransaction::progressed, this, &PackageKitClient::progressed);
    connect(m_transaction, &PackageKitTransaction::finished, this, &PackageKitClient::finish);
    m_transaction->start();
}

void PackageKitClient::cancel()
{
    if (m_transaction != nullptr)
        m_transaction->cancel();
    else if (m_use)
        QMetaObject::invokeMethod(
            m_use.get(), [this] { finish({ .end = TransactionEnd::Cancelled }); }, Qt::QueuedConnection);
}

void PackageKitClient::abandon()
{
    m_done = nullptr;
    forgetTransaction();
    m_bus.close();
}

void PackageKitClient::finish(const TransactionResult &result)
{
    const Completion done = std::exchange(m_done, nullptr);
    forgetTransaction();
    if (done)
        done(result); // The transaction that it is of goes later.
}

void PackageKitClient::forgetTransaction()
{
    m_opening.stop();
    if (m_transaction != nullptr)
        m_transaction->abandon();
    m_transaction = nullptr;
    // Later in this turn of the loop: the call may come from the transaction's own signal.
    if (QObject *used = m_use.release()) {
        for (QObject *transaction : used->children())
            transaction->disconnect(this);
        used->deleteLater();
    }
}

} // namespace glimmet
