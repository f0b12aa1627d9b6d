#include "platform/updates/UpdateCheck.h"

#include "platform/updates/PackageKitClient.h"

#include <utility>

namespace glimmet {
namespace {

using Verdict = UpdateFinding::Verdict;

/// Whether the service can still be asked: what it cannot fetch leaves the lists of before.
bool mayBeAsked(TransactionEnd end)
{
    return end == TransactionEnd::Succeeded || end == TransactionEnd::Failed;
}

} // namespace

UpdateCheck::UpdateCheck(PackageKitClient &client, QString program, Asking asking, QObject *parent)
    : QObject(parent)
    , m_client(client)
    , m_program(std::move(program))
    , m_asking(asking)
{
}

UpdateCheck::~UpdateCheck()
{
    if (m_isRunning)
        m_client.abandon();
}

void UpdateCheck::start()
{
    m_isRunning = true;
    m_client.run(
        PackageKitCalls::ownerOf(m_program), [this](const TransactionResult &owner) { handleOwner(owner); });
}

void UpdateCheck::handleOwner(const TransactionResult &owner)
{
    const auto installed = installedAmong(owner.packages);
    if (const auto failure = failureOf(owner)) {
        m_finding.failure = failure;
        return finish();
    }
    if (!installed) {
        m_finding.verdict = Verdict::NotPackaged;
        return finish();
    }
    m_finding.installed = *installed;
    m_client.run(PackageKitCalls::refreshCache(m_asking),
        [this](const TransactionResult &refreshed) { handleRefreshed(refreshed); });
}

void UpdateCheck::handleRefreshed(const TransactionResult &refreshed)
{
    m_refreshed = refreshed;
    if (!mayBeAsked(refreshed.end))
        return handleUpdates(refreshed);
    m_client.run(
        PackageKitCalls::updates(), [this](const TransactionResult &updates) { handleUpdates(updates); });
}

void UpdateCheck::handleUpdates(const TransactionResult &updates)
{
    m_finding = findingOf(m_finding.installed, m_refreshed, updates);
    if (m_finding.verdict != Verdict::Found)
        return finish();
    m_client.run(PackageKitCalls::changesOf(m_finding.update),
        [this](const TransactionResult &changes) { handleChanges(changes); });
}

void UpdateCheck::handleChanges(const TransactionResult &changes)
{
    m_finding.changes = changes.changes;
    finish();
}

void UpdateCheck::finish()
{
    m_isRunning = false;
    emit finished(m_finding);
}

} // namespace glimmet
