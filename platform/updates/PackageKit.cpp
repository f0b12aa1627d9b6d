#include "platform/updates/PackageKit.h"

#include <algorithm>
#include <array>
#include <utility>

namespace glimmet {
namespace {

constexpr quint64 noFilter = 0;
constexpr quint64 installedOnly = 1U << 2U;
constexpr quint64 onlyTrusted = 1U << 1U;

struct ErrorWords {
    uint code;
    QStringView words;
};

constexpr QStringView badSignature =
    u"The source of the update is not signed by someone this computer trusts. Nothing was installed.";
constexpr QStringView badFile =
    u"The update arrived damaged or is not the one that was announced. Nothing was "
    u"installed.";
constexpr QStringView badSource =
    u"One of this computer's software sources could not be read, so newer versions may "
    u"be missing.";
constexpr QStringView badSourceSignature = u"One of this computer's software sources is not signed by "
                                           u"someone this computer trusts, so newer versions "
                                           u"may be missing.";
constexpr QStringView badDownload = u"The update could not be downloaded.";
constexpr QStringView misfit = u"The update does not fit the other software on this computer.";
constexpr QStringView halfInstalled =
    u"The update could not be installed completely. The package manager may need repair.";
constexpr QStringView busy = u"Other software is being installed at the moment. Try again when that is done.";
constexpr QStringView gone = u"The update is not offered any more. Check again.";
constexpr QStringView unknown = u"The package manager could not do it.";

/// The numbers are those of PackageKit's PkErrorEnum, which never change.
constexpr std::array errorWords = {
    ErrorWords{ 1, u"There is not enough memory for the update." },
    ErrorWords{ 2, u"There is no network." },
    ErrorWords{ 3, u"The package manager of this computer cannot install updates this way." },
    ErrorWords{ 5, badSignature },
    ErrorWords{ 6, gone },
    ErrorWords{ 7, u"The package is not installed any more." },
    ErrorWords{ 8, gone },
    ErrorWords{ 10, badDownload },
    ErrorWords{ 13, misfit },
    ErrorWords{ 18, badSource },
    ErrorWords{ 19, badSource },
    ErrorWords{ 24, badSource },
    ErrorWords{ 26, busy },
    ErrorWords{ 27, gone },
    ErrorWords{ 30, badSignature },
    ErrorWords{ 31, badSignature },
    ErrorWords{ 33, badSource },
    ErrorWords{ 35, misfit },
    ErrorWords{ 36, misfit },
    ErrorWords{ 37, badSource },
    ErrorWords{ 38, badFile },
    ErrorWords{ 39, u"The update is held back by the package manager." },
    ErrorWords{ 40, badFile },
    ErrorWords{ 42, badDownload },
    ErrorWords{ 43, badDownload },
    ErrorWords{ 45, misfit },
    ErrorWords{ 46, u"There is not enough room on the disk." },
    ErrorWords{ 48, u"You may not install software here, or the password was not given." },
    ErrorWords{ 49, gone },
    ErrorWords{ 50, badSignature },
    ErrorWords{ 51, badSignature },
    ErrorWords{ 55, badDownload },
    ErrorWords{ 56, halfInstalled },
    ErrorWords{ 58, halfInstalled },
    ErrorWords{ 60, u"The update does not work while the program runs." },
    ErrorWords{ 61, busy },
    ErrorWords{ 64, badSource },
    ErrorWords{ 65, busy },
    ErrorWords{ 66, halfInstalled },
    ErrorWords{ 67, busy },
};

struct TellTale {
    QStringView text;
    QStringView words;
};

/// What the backend for apt has no numbers of its own for, by what apt says in English and gpg in every
/// language, and by the name of the program that checks signatures since Debian 13.
constexpr std::array tellTales = {
    TellTale{ u"Hash Sum mismatch", badFile },
    TellTale{ u"NO_PUBKEY", badSourceSignature },
    TellTale{ u"BADSIG", badSourceSignature },
    TellTale{ u"EXPKEYSIG", badSourceSignature },
    TellTale{ u"/usr/bin/sqv", badSourceSignature },
};

/// A user reads no longer text, while laying out one of megabytes would stop everything for seconds.
constexpr qsizetype longestText = 20'000;

QString shortened(const QString &text)
{
    return text.size() <= longestText ? text : text.left(longestText) + u'…';
}

QString wordsForFailure(const TransactionResult &result)
{
    const auto *found = std::find_if(tellTales.begin(), tellTales.end(),
        [&](const TellTale &candidate) { return result.details.contains(candidate.text); });
    return found == tellTales.end() ? wordsForErrorCode(result.errorCode) : found->words.toString();
}

QString wordsFor(const TransactionResult &result)
{
    switch (result.end) {
    case TransactionEnd::Succeeded:
    case TransactionEnd::Failed:
        return wordsForFailure(result);
    case TransactionEnd::Cancelled:
        return QStringLiteral("It was cancelled.");
    case TransactionEnd::ServiceMissing:
        return QStringLiteral("This computer has no service that installs updates (PackageKit).");
    case TransactionEnd::ServiceGone:
        return QStringLiteral("The service that installs updates ended in the middle of its work.");
    case TransactionEnd::TimedOut:
        return QStringLiteral("The service that installs updates does not answer.");
    }
    return {};
}

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
        return shortened(words);
    const QString log = changelog.trimmed();
    // In place of a changelog that its source does not have, the backend for apt has one of these,
    // untranslated.
    const bool isNone = log.startsWith(u"Changelog for this version is not yet available")
        || log.startsWith(u"The list of changes is not available yet");
    return isNone ? QString() : shortened(log);
}

QString wordsForErrorCode(uint code)
{
    const auto *found = std::find_if(errorWords.begin(), errorWords.end(),
        [code](const ErrorWords &candidate) { return candidate.code == code; });
    return (found == errorWords.end() ? unknown : found->words).toString();
}

std::optional<UpdateFailure> failureOf(const TransactionResult &result)
{
    if (result.end == TransactionEnd::Succeeded)
        return std::nullopt;
    return UpdateFailure{ wordsFor(result), shortened(result.details) };
}

} // namespace glimmet
