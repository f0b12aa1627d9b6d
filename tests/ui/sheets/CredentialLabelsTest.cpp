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

TEST(CredentialLabels, theBadgeSaysWhyAKeyIsNotSaved)
{
    using State = KeyStatus::State;
    const auto said = [](State state, KeyObstacle obstacle, bool isEmpty = false) {
        const KeyStatus status{ state, obstacle };
        return QStringList{ CredentialLabels::trouble(status, isEmpty), CredentialLabels::remedy(status) };
    };
    const auto words = [](const char16_t *trouble, const char16_t *remedy = u"") {
        return QStringList{ QString::fromUtf16(trouble), QString::fromUtf16(remedy) };
    };

    for (const State state : { State::Saved, State::Absent })
        for (const KeyObstacle obstacle : { KeyObstacle::None, KeyObstacle::NoCollection })
            EXPECT_EQ(said(state, obstacle), words(u""));
    EXPECT_EQ(said(State::Unknown, KeyObstacle::Locked), words(u"The keyring is locked", u"Unlock"));
    EXPECT_EQ(said(State::Unknown, KeyObstacle::NoService), words(u"No keyring service answers"));
    EXPECT_EQ(said(State::KeptUntilEnd, KeyObstacle::Locked),
        words(u"Keyring locked: kept until glimmet quits", u"Unlock"));
    EXPECT_EQ(said(State::KeptUntilEnd, KeyObstacle::NoCollection),
        words(u"No keyring yet: kept until glimmet quits", u"Create"));
    EXPECT_EQ(said(State::KeptUntilEnd, KeyObstacle::NoService),
        words(u"No keyring service: kept until glimmet quits"));
    EXPECT_EQ(said(State::KeptUntilEnd, KeyObstacle::AwaitsUser),
        words(u"Not saved: kept until glimmet quits", u"Save"));
    EXPECT_EQ(said(State::KeptUntilEnd, KeyObstacle::Refused), words(u"Not saved: kept until glimmet quits"));
    EXPECT_EQ(
        said(State::KeptUntilEnd, KeyObstacle::Locked, true), words(u"The keyring is locked", u"Unlock"));
    EXPECT_EQ(said(State::KeptUntilEnd, KeyObstacle::Refused, true), words(u"Not cleared in the keyring"));
}

TEST(CredentialLabels, knowWhichFieldATextAsksFor)
{
    const auto asked = [](RevenueProvider provider, const QString &text) {
        return CredentialLabels::asked(static_cast<int>(provider), text);
    };

    EXPECT_EQ(
        asked(RevenueProvider::Stripe, QStringLiteral("add api key")), field(KeychainKey::StripeAPIKey));
    EXPECT_EQ(asked(RevenueProvider::RevenueCat, QStringLiteral("add api key")),
        field(KeychainKey::RevenueCatAPIKey));
    EXPECT_EQ(asked(RevenueProvider::RevenueCat, QStringLiteral("add project id")),
        field(KeychainKey::RevenueCatProjectID));
    // A platform without a project, a currency, which is chosen elsewhere, and a figure.
    EXPECT_EQ(asked(RevenueProvider::Stripe, QStringLiteral("add project id")), -1);
    EXPECT_EQ(asked(RevenueProvider::Stripe, QStringLiteral("set currency")), -1);
    EXPECT_EQ(asked(RevenueProvider::Stripe, QStringLiteral("💰 $12.00")), -1);
    EXPECT_EQ(asked(RevenueProvider::Stripe, QString()), -1);
}

} // namespace glimmet
