#pragma once

#include "platform/updates/PackageId.h"

#include <QList>
#include <QString>
#include <QVariantList>

#include <optional>

/// What is asked of PackageKit and what it answers, as values. Its interfaces are described at
/// https://www.freedesktop.org/software/PackageKit/gtk-doc/api-reference.html.
namespace glimmet {

/// Whether the user is there, who may be asked for a password.
enum class Asking { User, Nobody };

/// One transaction: the method that starts it and its arguments.
struct PackageKitCall {
    QString method;
    QVariantList arguments;
    Asking asking = Asking::Nobody;
};

namespace PackageKitCalls {
/// The installed package that the file at `path` belongs to.
PackageKitCall ownerOf(const QString &path);
/// Fetches the lists of all sources.
PackageKitCall refreshCache(Asking asking);
/// What could be updated, by the lists that are there.
PackageKitCall updates();
/// What is new in a version.
PackageKitCall changesOf(const PackageId &update);
/// Installs exactly these, signed by a source that is trusted.
PackageKitCall install(const PackageId &update);
/// All versions of a package, the installed one among them.
PackageKitCall versionsOf(const QString &name);
} // namespace PackageKitCalls

/// What is new, from the description and the changelog that the service has for an update. Empty where the
/// changelog only says that there is none.
QString changesFrom(const QString &description, const QString &changelog);

struct FoundPackage {
    uint info = 0; ///< PackageKit's PkInfoEnum
    PackageId id;
};

enum class TransactionEnd {
    Succeeded,
    Failed,
    Cancelled,
    ServiceMissing, ///< there is no PackageKit, or no system bus
    ServiceGone, ///< it, or the bus, ended on the way
    TimedOut, ///< nothing was heard of it for too long
};

struct TransactionResult {
    TransactionEnd end = TransactionEnd::Succeeded;
    uint errorCode = 0; ///< PackageKit's PkErrorEnum
    QString details{}; ///< what the service says of a failure
    QList<FoundPackage> packages{};
    QString changes{};
};

struct TransactionProgress {
    std::optional<int> percentage; ///< none where the service cannot tell
    bool isCancellable = true; ///< a transaction is, until it says otherwise

    friend bool operator==(const TransactionProgress &, const TransactionProgress &) = default;
};

/// What went wrong, as the service told it.
struct PackageKitFailure {
    TransactionEnd end = TransactionEnd::Failed;
    uint errorCode = 0; ///< PackageKit's PkErrorEnum
    QString details; ///< the service's own words, all of them; may be empty

    friend bool operator==(const PackageKitFailure &, const PackageKitFailure &) = default;
};

/// None where the transaction succeeded.
std::optional<PackageKitFailure> failureOf(const TransactionResult &result);

/// The beginning of a text of the service's, which may be of megabytes: no user reads more, while laying out
/// all of it would stop everything for seconds.
QString readableLength(const QString &text);

} // namespace glimmet
