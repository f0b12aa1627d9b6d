#include "app/updates/UpdateWords.h"

#include <algorithm>
#include <array>

namespace glimmet {
namespace {

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

QString wordsForErrorCode(uint code)
{
    const auto *found = std::find_if(errorWords.begin(), errorWords.end(),
        [code](const ErrorWords &candidate) { return candidate.code == code; });
    return (found == errorWords.end() ? unknown : found->words).toString();
}

QString wordsForFailure(const PackageKitFailure &failure)
{
    const auto *found = std::find_if(tellTales.begin(), tellTales.end(),
        [&](const TellTale &candidate) { return failure.details.contains(candidate.text); });
    return found == tellTales.end() ? wordsForErrorCode(failure.errorCode) : found->words.toString();
}

QString wordsFor(const PackageKitFailure &failure)
{
    switch (failure.end) {
    case TransactionEnd::Succeeded:
    case TransactionEnd::Failed:
        return wordsForFailure(failure);
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

UpdateFailure inWords(const PackageKitFailure &failure)
{
    return { wordsFor(failure), readableLength(failure.details) };
}

UpdateFailure withoutEffect()
{
    return { QStringLiteral("The package manager reported success, but the newer version is not installed."),
        {} };
}

} // namespace glimmet
