#include "platform/updates/UpdateFinding.h"
#include "tests/support/Printing.h"

#include <gtest/gtest.h>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;
using Verdict = UpdateFinding::Verdict;

constexpr uint installedInfo = 1;
constexpr uint availableInfo = 2;
constexpr uint normalInfo = 5;
constexpr uint blockedInfo = 9;

PackageId version(const QString &text, const QString &name = u"glimmet"_s)
{
    return { name, text, u"amd64"_s, u"test"_s };
}

TransactionResult with(const QList<FoundPackage> &packages)
{
    return { .packages = packages };
}

TransactionResult brokenSource()
{
    return { .end = TransactionEnd::Failed, .errorCode = 64, .details = u"no Release file"_s };
}

TEST(UpdateFinding, isFoundWhereANewerOneIsOffered)
{
    const auto finding = findingOf(version(u"1.0"_s), {}, with({ { normalInfo, version(u"1.1"_s) } }));

    EXPECT_EQ(finding.verdict, Verdict::Found);
    EXPECT_EQ(finding.update, version(u"1.1"_s));
}

TEST(UpdateFinding, isUpToDateWhereNothingIsOffered)
{
    EXPECT_EQ(findingOf(version(u"1.0"_s), {}, {}).verdict, Verdict::UpToDate);
}

TEST(UpdateFinding, doesNotCountOtherPackagesNorOtherArchitecturesNorOlderOnes)
{
    PackageId foreign = version(u"2.0"_s);
    foreign.architecture = u"i386"_s;
    const auto updates = with({ { normalInfo, version(u"2.0"_s, u"glimmet-data"_s) },
        { normalInfo, version(u"0.9"_s) }, { normalInfo, version(u"1.0"_s) }, { normalInfo, foreign } });

    EXPECT_EQ(findingOf(version(u"1.0"_s), {}, updates).verdict, Verdict::UpToDate);
}

TEST(UpdateFinding, isTheNewestOfSeveral)
{
    const auto updates = with({ { normalInfo, version(u"1.2"_s) }, { normalInfo, version(u"1.10"_s) },
        { normalInfo, version(u"1.9"_s) } });

    EXPECT_EQ(findingOf(version(u"1.0"_s), {}, updates).update.version, u"1.10"_s);
}

TEST(UpdateFinding, anOldListStillTellsOfAnUpdate)
{
    const auto updates = with({ { normalInfo, version(u"1.1"_s) } });

    EXPECT_EQ(findingOf(version(u"1.0"_s), brokenSource(), updates).verdict, Verdict::Found);
}

TEST(UpdateFinding, anOldListNeverMeansUpToDate)
{
    const auto finding = findingOf(version(u"1.0"_s), brokenSource(), {});

    EXPECT_EQ(finding.verdict, Verdict::Failed);
    EXPECT_EQ(finding.failure.words, wordsForErrorCode(64));
    EXPECT_EQ(finding.failure.details, u"no Release file"_s);
}

TEST(UpdateFinding, anUnansweredQuestionNeverMeansUpToDate)
{
    EXPECT_EQ(findingOf(version(u"1.0"_s), {}, { .end = TransactionEnd::Failed }).verdict, Verdict::Failed);
}

TEST(UpdateFinding, saysThatAnUpdateIsHeldBack)
{
    const auto finding = findingOf(version(u"1.0"_s), {}, with({ { blockedInfo, version(u"1.1"_s) } }));

    EXPECT_EQ(finding.verdict, Verdict::Failed);
    EXPECT_EQ(finding.failure.words, u"The update is held back by the package manager."_s);
}

TEST(Changes, areTheDescriptionOrElseTheChangelog)
{
    EXPECT_EQ(changesFrom(u" Faster\n"_s, u"1.1: faster"_s), u"Faster"_s);
    EXPECT_EQ(changesFrom({}, u"1.1: faster\n"_s), u"1.1: faster"_s);
}

TEST(Changes, areNoneWhereTheChangelogOnlySaysSo)
{
    EXPECT_EQ(changesFrom({}, u"Changelog for this version is not yet available"_s), QString());
}

TEST(UpdateChanges, areNoLongerThanSomebodyReads)
{
    const QString endless = QString(5'000'000, u'x');

    EXPECT_LT(changesFrom(endless, {}).size(), 50'000);
    EXPECT_LT(changesFrom({}, endless).size(), 50'000);
    EXPECT_TRUE(changesFrom({}, endless).endsWith(u'…'));
}

TEST(UpdateFailure, hasDetailsNoLongerThanSomebodyReads)
{
    const TransactionResult result{ .end = TransactionEnd::Failed, .details = QString(5'000'000, u'x') };

    EXPECT_LT(failureOf(result)->details.size(), 50'000);
}

TEST(InstalledPackage, isTheOneThatIsInstalled)
{
    EXPECT_EQ(installedAmong({ { availableInfo, version(u"1.1"_s) }, { installedInfo, version(u"1.0"_s) } }),
        version(u"1.0"_s));
    EXPECT_EQ(installedAmong({ { availableInfo, version(u"1.1"_s) } }), std::nullopt);
}

TEST(InstalledPackage, isNewOnlyWhereItsVersionIs)
{
    const PackageId before = version(u"1.0"_s);

    EXPECT_EQ(newerInstalled(before, with({ { installedInfo, version(u"1.1"_s) } })), version(u"1.1"_s));
    EXPECT_EQ(newerInstalled(before, with({ { installedInfo, before } })), std::nullopt);
    EXPECT_EQ(newerInstalled(before, with({ { availableInfo, version(u"1.1"_s) } })), std::nullopt);
}

TEST(FailureOfATransaction, isNoneWhereItSucceeded)
{
    EXPECT_EQ(failureOf({}), std::nullopt);
}

TEST(FailureOfATransaction, hasOwnWordsForEveryEnd)
{
    QStringList words;
    for (const auto end : { TransactionEnd::Failed, TransactionEnd::Cancelled, TransactionEnd::ServiceMissing,
             TransactionEnd::ServiceGone, TransactionEnd::TimedOut })
        words.append(failureOf({ .end = end })->words);

    EXPECT_FALSE(words.contains(QString()));
    EXPECT_EQ(words.removeDuplicates(), 0);
}

TEST(FailureOfATransaction, hasPlainWordsForWhatUsuallyGoesWrong)
{
    EXPECT_EQ(wordsForErrorCode(48), u"You may not install software here, or the password was not given."_s);
    EXPECT_TRUE(
        wordsForErrorCode(64).startsWith(u"One of this computer's software sources could not be read"));
    EXPECT_TRUE(wordsForErrorCode(50).contains(u"not signed"));
    EXPECT_TRUE(wordsForErrorCode(40).contains(u"damaged"));
    EXPECT_EQ(wordsForErrorCode(4), u"The package manager could not do it."_s);
    EXPECT_EQ(wordsForErrorCode(4711), wordsForErrorCode(4));
}

TEST(FailureOfATransaction, tellsASpoiledFileAndAStrangersSignatureByWhatAptSays)
{
    const auto wordsFor = [](uint code, const QString &details) {
        return failureOf({ .end = TransactionEnd::Failed, .errorCode = code, .details = details })->words;
    };

    EXPECT_EQ(
        wordsFor(10, u"glimmet 1.1 is not (yet) available (Hash Sum mismatch)"_s), wordsForErrorCode(40));
    EXPECT_TRUE(wordsFor(64, u"GPG error: NO_PUBKEY 940A95EF825CD2D9"_s).contains(u"not signed"));
    EXPECT_TRUE(
        wordsFor(64, u"Sub-process /usr/bin/sqv returned an error code (1)"_s).contains(u"not signed"));
    EXPECT_EQ(wordsFor(10, u"404  Not Found"_s), wordsForErrorCode(10));
}

} // namespace
} // namespace glimmet
