#include "platform/updates/UpdateFinding.h"

#include <algorithm>

namespace glimmet {
namespace {

constexpr uint installedInfo = 1;
constexpr uint blockedInfo = 9;
constexpr uint installBlockedError = 39;

bool isNewer(const PackageId &candidate, const PackageId &installed)
{
    return candidate.name == installed.name && candidate.architecture == installed.architecture
        && compareVersions(candidate.version, installed.version) > 0;
}

const FoundPackage *newest(const QList<FoundPackage> &packages)
{
    const auto isOlder = [](const FoundPackage &one, const FoundPackage &other) {
        return compareVersions(one.id.version, other.id.version) < 0;
    };
    const auto found = std::max_element(packages.begin(), packages.end(), isOlder);
    return found == packages.end() ? nullptr : &*found;
}

QList<FoundPackage> updatesOf(const PackageId &installed, QList<FoundPackage> packages)
{
    packages.removeIf([&](const FoundPackage &candidate) { return !isNewer(candidate.id, installed); });
    return packages;
}

UpdateFinding failed(const PackageId &installed, const PackageKitFailure &failure)
{
    return { UpdateFinding::Verdict::Failed, installed, {}, {}, failure };
}

} // namespace

std::optional<PackageId> installedAmong(const QList<FoundPackage> &packages)
{
    QList<FoundPackage> installed = packages;
    installed.removeIf([](const FoundPackage &package) { return package.info != installedInfo; });
    const FoundPackage *found = newest(installed);
    return found == nullptr ? std::nullopt : std::optional(found->id);
}

UpdateFinding findingOf(
    const PackageId &installed, const TransactionResult &refreshed, const TransactionResult &updates)
{
    const QList<FoundPackage> candidates = updatesOf(installed, updates.packages);
    const FoundPackage *update = newest(candidates);
    if (update != nullptr && update->info == blockedInfo)
        return failed(installed, { TransactionEnd::Failed, installBlockedError, {} });
    if (update != nullptr)
        return { UpdateFinding::Verdict::Found, installed, update->id, {}, {} };
    if (const auto failure = failureOf(refreshed))
        return failed(installed, *failure);
    if (const auto failure = failureOf(updates))
        return failed(installed, *failure);
    return { UpdateFinding::Verdict::UpToDate, installed, {}, {}, {} };
}

std::optional<PackageId> newerInstalled(const PackageId &before, const TransactionResult &versions)
{
    return installedAmong(updatesOf(before, versions.packages));
}

} // namespace glimmet
