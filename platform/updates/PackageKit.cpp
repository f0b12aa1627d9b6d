#include "platform/updates/PackageKit.h"

namespace glimmet {
namespace {

constexpr quint64 noFilter = 0;
constexpr quint64 installedOnly = 1U << 2U;
constexpr quint64 onlyTrusted = 1U << 1U;

constexpr qsizetype longestText = 20'000;

} // namespace

namespace PackageKitCalls {

PackageKitCall ownerOf(const QString &path)
{
    return { QStringLiteral("SearchFiles"), { installedOnly, QStringList{ path } } };
}

PackageKitCall refreshCache(Asking asking)
{
    const bool fetchAll = false; // What did not change since need not be fetched again.
    return { QStringLiteral("RefreshCache"), { fetchAll }, asking };
}

PackageKitCall updates()
{
    return { QStringLiteral("GetUpdates"), { noFilter } };
}

PackageKitCall changesOf(const PackageId &update)
{
    return { QStringLiteral("GetUpdateDetail"), { QStringList{ textOf(update) } } };
}

PackageKitCall install(const PackageId &update)
{
    return { QStringLiteral("UpdatePackages"), { onlyTrusted, QStringList{ textOf(update) } }, Asking::User };
}

PackageKitCall versionsOf(const QString &name)
{
    return { QStringLiteral("Resolve"), { noFilter, QStringList{ name } } };
}

} // namespace PackageKitCalls

QString changesFrom(const QString &description, const QString &changelog)
{
    if (const QString words = description.trimmed(); !words.isEmpty())
        return readableLength(words);
    const QString log = changelog.trimmed();
    // In place of a changelog that its source does not have, the backend for apt has one of these,
    // untranslated.
    const bool isNone = log.startsWith(u"Changelog for this version is not yet available")
        || log.startsWith(u"The list of changes is not available yet");
    return isNone ? QString() : readableLength(log);
}

std::optional<PackageKitFailure> failureOf(const TransactionResult &result)
{
    if (result.end == TransactionEnd::Succeeded)
        return std::nullopt;
    return PackageKitFailure{ result.end, result.errorCode, result.details };
}

QString readableLength(const QString &text)
{
    return text.size() <= longestText ? text : text.left(longestText) + u'…';
}

} // namespace glimmet
