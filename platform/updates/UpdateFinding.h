#pragma once

#include "platform/updates/PackageKit.h"

#include <optional>

namespace glimmet {

/// What a finished check has come to.
struct UpdateFinding {
    enum class Verdict { UpToDate, Found, NotPackaged, Failed };

    Verdict verdict = Verdict::Failed;
    PackageId installed; ///< empty where it was not found out
    PackageId update; ///< empty unless one was found
    QString changes; ///< what is new in it, if the source says so
    std::optional<PackageKitFailure> failure; ///< where it failed

    friend bool operator==(const UpdateFinding &, const UpdateFinding &) = default;
};

/// The installed one among packages that were found. Of several the newest, which can be the case for a
/// moment.
std::optional<PackageId> installedAmong(const QList<FoundPackage> &packages);

/// What is to be made of fetching the lists and asking for updates afterwards. An update counts also if the
/// fetch failed: the lists of before tell of it. Without one, only a complete answer means up to date.
UpdateFinding findingOf(
    const PackageId &installed, const TransactionResult &refreshed, const TransactionResult &updates);

/// The installed version after an installation, if it is really newer than the one before.
std::optional<PackageId> newerInstalled(const PackageId &before, const TransactionResult &versions);

} // namespace glimmet
