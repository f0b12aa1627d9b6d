#include "app/updates/UpdateWords.h"
#include "tests/support/Printing.h"

#include <gtest/gtest.h>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;

/// The words for an error number of which the service says nothing else.
QString wordsForErrorCode(uint code)
{
    return inWords({ TransactionEnd::Failed, code, {} }).words;
}

TEST(UpdateWords, tellEveryEndFromTheOthers)
{
    QStringList words;
    for (const auto end : { TransactionEnd::Failed, TransactionEnd::Cancelled, TransactionEnd::ServiceMissing,
             TransactionEnd::ServiceGone, TransactionEnd::TimedOut })
        words.append(inWords({ end, 0, {} }).words);

    EXPECT_FALSE(words.contains(QString()));
    EXPECT_EQ(words.removeDuplicates(), 0);
}

TEST(UpdateWords, arePlainForWhatUsuallyGoesWrong)
{
    EXPECT_EQ(wordsForErrorCode(48), u"You may not install software here, or the password was not given."_s);
    EXPECT_TRUE(
        wordsForErrorCode(64).startsWith(u"One of this computer's software sources could not be read"));
    EXPECT_TRUE(wordsForErrorCode(50).contains(u"not signed"));
    EXPECT_TRUE(wordsForErrorCode(40).contains(u"damaged"));
    EXPECT_EQ(wordsForErrorCode(4), u"The package manager could not do it."_s);
    EXPECT_EQ(wordsForErrorCode(4711), wordsForErrorCode(4));
}

TEST(UpdateWords, tellASpoiledFileAndAStrangersSignatureByWhatAptSays)
{
    const auto wordsFor = [](uint code, const QString &details) {
        return inWords({ TransactionEnd::Failed, code, details }).words;
    };

    EXPECT_EQ(
        wordsFor(10, u"glimmet 1.1 is not (yet) available (Hash Sum mismatch)"_s), wordsForErrorCode(40));
    EXPECT_TRUE(wordsFor(64, u"GPG error: NO_PUBKEY 940A95EF825CD2D9"_s).contains(u"not signed"));
    EXPECT_TRUE(
        wordsFor(64, u"Sub-process /usr/bin/sqv returned an error code (1)"_s).contains(u"not signed"));
    EXPECT_EQ(wordsFor(10, u"404  Not Found"_s), wordsForErrorCode(10));
}

TEST(UpdateWords, comeWithDetailsNoLongerThanAUserReads)
{
    const PackageKitFailure failure{ TransactionEnd::Failed, 64, QString(5'000'000, u'x') };

    EXPECT_LT(inWords(failure).details.size(), 50'000);
    EXPECT_TRUE(inWords(failure).details.endsWith(u'…'));
}

TEST(UpdateWords, tellATaleThatStandsFarBehind)
{
    const QString details = QString(100'000, u'x') + u"Hash Sum mismatch"_s;

    EXPECT_EQ(inWords({ TransactionEnd::Failed, 10, details }).words, wordsForErrorCode(40));
}

} // namespace
} // namespace glimmet
