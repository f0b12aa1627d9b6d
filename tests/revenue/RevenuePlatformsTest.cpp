#include "revenue/RevenuePlatforms.h"
#include "revenue/RevenueFetcher.h"
#include "tests/support/Printing.h"

#include <gtest/gtest.h>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;

TEST(RevenuePlatforms, holdEachPlatformOnceInTheOrderOfTheChips)
{
    QList<RevenueProvider> listed;
    for (const RevenuePlatform &platform : revenuePlatforms())
        listed.append(platform.provider);
    QList<RevenueProvider> offered;
    for (const auto &[provider, name] : rawValues<RevenueProvider>)
        offered.append(provider);

    EXPECT_EQ(listed, offered);
}

TEST(RevenuePlatforms, haveEachItemOfTheKeyStoreOnceInTheOrderInWhichTheyAreLoaded)
{
    QList<KeychainKey> listed;
    for (const RevenuePlatform &platform : revenuePlatforms()) {
        for (const CredentialField &field : platform.credentials)
            listed.append(field.key);
    }
    QList<KeychainKey> loaded;
    for (const auto &[key, account] : rawValues<KeychainKey>)
        loaded.append(key);

    EXPECT_EQ(listed, loaded);
}

TEST(RevenuePlatforms, beginWithTheKeyAndSayHowItIsEntered)
{
    for (const RevenuePlatform &platform : revenuePlatforms()) {
        const CredentialField &first = platform.credentials.constFirst();
        EXPECT_EQ(first.role, CredentialRole::Key) << qPrintable(platform.title);
        EXPECT_FALSE(first.caption.isEmpty() || first.placeholder.isEmpty() || first.hint.isEmpty())
            << qPrintable(platform.title);
        EXPECT_EQ(platformOf(first.key).provider, platform.provider);
    }
}

class MissingInputTest : public testing::TestWithParam<RevenueProvider> {
protected:
    RevenueQuery complete() const
    {
        RevenueQuery query;
        query.provider = GetParam();
        query.apiKey = ApiKey(u"key"_s);
        query.projectID = u"proj"_s;
        query.currency = u"USD"_s;
        return query;
    }
};

TEST_P(MissingInputTest, isNothingWhereAllIsThere)
{
    EXPECT_EQ(missingInput(complete()), QString());
}

TEST_P(MissingInputTest, isTheKeyFirstOfAll)
{
    RevenueQuery query = complete();
    query.apiKey = ApiKey(u" \t"_s);
    query.projectID.clear();
    query.currency.clear();

    EXPECT_EQ(missingInput(query), u"add api key"_s);
}

TEST_P(MissingInputTest, isTheProjectForTheOnePlatformThatHasProjects)
{
    RevenueQuery query = complete();
    query.projectID = u" "_s;

    const bool hasProjects = GetParam() == RevenueProvider::RevenueCat;
    EXPECT_EQ(missingInput(query), hasProjects ? u"add project id"_s : QString());
}

TEST_P(MissingInputTest, isTheCurrencyForThoseThatAreAskedInOne)
{
    RevenueQuery query = complete();
    query.currency.clear();

    const bool hasCurrency = GetParam() == RevenueProvider::Stripe || GetParam() == RevenueProvider::Dodo;
    EXPECT_EQ(missingInput(query), hasCurrency ? u"set currency"_s : QString());
}

INSTANTIATE_TEST_SUITE_P(Each, MissingInputTest,
    testing::Values(RevenueProvider::Polar, RevenueProvider::RevenueCat, RevenueProvider::Dodo,
        RevenueProvider::Stripe, RevenueProvider::LemonSqueezy),
    [](const auto &each) { return rawValue(each.param).remove(u' ').toStdString(); });

} // namespace
} // namespace glimmet
