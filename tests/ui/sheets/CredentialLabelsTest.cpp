#include "ui/sheets/CredentialLabels.h"
#include "revenue/RevenueChoices.h"
#include "tests/support/Printing.h"

#include <gmock/gmock.h>

namespace glimmet {

namespace {

QList<int> allFields()
{
    QList<int> keys;
    for (const int section : CredentialLabels::sections()) {
        for (const QVariant &key : CredentialLabels::fields(section))
            keys.append(key.toInt());
    }
    return keys;
}

/// What `text` says of each of the fields, section by section.
QStringList texts(QString (*text)(int))
{
    QStringList found;
    for (const int key : allFields())
        found.append(text(key));
    return found;
}

int field(KeychainKey key)
{
    return static_cast<int>(key);
}

} // namespace

TEST(CredentialLabels, aSectionStandsForEachPlatformInTheirOrder)
{
    QStringList titles;
    for (const int section : CredentialLabels::sections())
        titles.append(CredentialLabels::title(section));

    EXPECT_THAT(
        titles, testing::ElementsAre(u"POLAR", u"REVENUECAT", u"DODO PAYMENTS", u"STRIPE", u"LEMON SQUEEZY"));
}

TEST(CredentialLabels, aSectionHoldsTheCredentialsOfItsPlatform)
{
    QList<QVariantList> fields;
    for (const int section : CredentialLabels::sections())
        fields.append(CredentialLabels::fields(section));

    EXPECT_EQ(fields,
        (QList<QVariantList>{ { field(KeychainKey::PolarAPIKey) },
            { field(KeychainKey::RevenueCatAPIKey), field(KeychainKey::RevenueCatProjectID) },
            { field(KeychainKey::DodoAPIKey) }, { field(KeychainKey::StripeAPIKey) },
            { field(KeychainKey::LemonSqueezyAPIKey) } }));
}

TEST(CredentialLabels, eachFieldHasItsCaption)
{
    EXPECT_THAT(texts(CredentialLabels::caption),
        testing::ElementsAre(u"PERSONAL ACCESS TOKEN", u"SECRET API KEY", u"PROJECT ID", u"API KEY",
            u"RESTRICTED KEY", u"API KEY"));
}

TEST(CredentialLabels, noTwoFieldsAreToldByOneName)
{
    EXPECT_THAT(texts(CredentialLabels::name),
        testing::ElementsAre(u"POLAR PERSONAL ACCESS TOKEN", u"REVENUECAT SECRET API KEY",
            u"REVENUECAT PROJECT ID", u"DODO PAYMENTS API KEY", u"STRIPE RESTRICTED KEY",
            u"LEMON SQUEEZY API KEY"));
}

TEST(CredentialLabels, eachFieldHasItsPlaceholder)
{
    EXPECT_THAT(texts(CredentialLabels::placeholder),
        testing::ElementsAre(u"pat_…", u"sk_…", u"proj_…", u"dk_live_…", u"rk_live_…", u"eyJhb…"));
}

TEST(CredentialLabels, eachFieldSaysWhereItsCredentialIsFound)
{
    EXPECT_THAT(texts(CredentialLabels::hint),
        testing::ElementsAre(u"Polar → Settings → API", u"Dashboard → Project → API Keys",
            u"Dashboard → Project Settings", u"Dodo Payments → Settings → API Keys",
            u"Dashboard → Developers → API keys", u"Lemon Squeezy → Settings → API"));
}

TEST(CredentialLabels, theBadgeSaysWhetherThereIsAKey)
{
    EXPECT_EQ(CredentialLabels::status(true), QStringLiteral("Key saved in Keychain"));
    EXPECT_EQ(CredentialLabels::status(false), QStringLiteral("No key saved"));
}

} // namespace glimmet
