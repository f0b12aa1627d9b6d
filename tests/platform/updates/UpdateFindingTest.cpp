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
    EXPECT_EQ(finding.failure, (PackageKitFailure{ TransactionEnd::Failed, 64, u"no Release file"_s }));
}

TEST(UpdateFinding, anUnansweredQuestionNeverMeansUpToDate)
{
    EXPECT_EQ(findingOf(version(u"1.0"_s), {}, { .end = TransactionEnd::Failed }).verdict, Verdict::Failed);
}

TEST(UpdateFinding, saysThatAnUpdateIsHeldBack)
{
    const auto finding = findingOf(version(u"1.0"_s), {}, with({ { blockedInfo, version(u"1.1"_s) } }));

    EXPECT_EQ(finding.verdict, Verdict::Failed);
    EXPECT_EQ(finding.failure, (PackageKitFailure{ TransactionEnd::Failed, 39, {} }));
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

} // namespace
} // namespace glimmet
