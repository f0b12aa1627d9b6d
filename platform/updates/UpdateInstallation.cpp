#include "platform/updates/UpdateInstallation.h"

#include "platform/updates/PackageKitClient.h"
#include "platform/updates/UpdateFinding.h"

#include <utility>

namespace glimmet {

UpdateInstallation::UpdateInstallation(
    PackageKitClient &client, PackageId installed, PackageId update, QObject *parent)
    : QObject(parent)
    , m_client(client)
    , m_installed(std::move(installed))
    , m_update(std::move(update))
{
}

UpdateInstallation::~UpdateInstallation()
{
    if (m_isRunning)
        m_client.abandon();
}

void UpdateInstallation::start()
{
    m_isRunning = true;
    m_client.run(PackageKitCalls::install(m_update),
        [this](const TransactionResult &result) { handleInstalled(result); });
}

void UpdateInstallation::cancel()
{
    if (!m_isVerifying)
        m_client.cancel();
}

void UpdateInstallation::handleInstalled(const TransactionResult &result)
{
    m_result = result;
    m_isVerifying = true;
    // Also after a failure: the service may have died after the work, or have been cancelled too late.
    m_client.run(PackageKitCalls::versionsOf(m_installed.name),
        [this](const TransactionResult &versions) { handleVersions(versions); });
}

void UpdateInstallation::handleVersions(const TransactionResult &versions)
{
    const auto newer = newerInstalled(m_installed, versions);
    const bool wasCancelled = !newer && m_result.end == TransactionEnd::Cancelled;
    m_isRunning = false;
    const auto failure = failureOf(m_result);
    emit finished({ newer, wasCancelled, failure ? failure : failureOf(versions) });
}

} // namespace glimmet
