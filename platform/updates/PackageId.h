#pragma once

#include <QString>

#include <optional>

namespace glimmet {

/// A version of a package as PackageKit names it: "name;version;architecture;data".
struct PackageId {
    QString name;
    QString version;
    QString architecture;
    QString data; ///< where it is from, or that it is installed; its words are the backend's own

    friend bool operator==(const PackageId &, const PackageId &) = default;
};

/// None where `text` has not exactly four parts, or no name.
std::optional<PackageId> packageIdFrom(const QString &text);
QString textOf(const PackageId &id);

/// Below zero where `one` is older than `other`, 0 where they are equal, above zero where it is newer: the
/// order of Debian's policy, 5.6.12 (https://www.debian.org/doc/debian-policy/ch-controlfields.html). Of
/// well-formed versions of other systems it sorts the usual ones alike.
int compareVersions(const QString &one, const QString &other);

} // namespace glimmet
