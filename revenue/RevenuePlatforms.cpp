#include "revenue/RevenuePlatforms.h"

#include "platform/Fatal.h"
#include "platform/Text.h"
#include "revenue/RevenueFetcher.h"

#include <utility>

namespace glimmet {

using namespace Qt::StringLiterals;
using enum CredentialRole;
using CurrencyCode = RevenuePlatform::CurrencyCode;
using MissingInput = RevenuePlatform::MissingInput;

namespace {

const QString addKey = u"add api key"_s;
const QString addProjectID = u"add project id"_s;
const QString setCurrency = u"set currency"_s;

/// A credential with the platform that it belongs to.
std::pair<const RevenuePlatform *, const CredentialField *> find(KeychainKey key)
{
    for (const RevenuePlatform &platform : revenuePlatforms()) {
        for (const CredentialField &field : platform.credentials) {
            if (field.key == key)
                return { &platform, &field };
        }
    }
    fatal("a credential of no platform");
}

/// What asks the user for a credential of that role.
QString requestFor(CredentialRole role)
{
    switch (role) {
    case Key:
        return addKey;
    case ProjectID:
        return addProjectID;
    case Currency:
        return setCurrency;
    }
    Q_UNREACHABLE();
}

} // namespace

const QList<RevenuePlatform> &revenuePlatforms()
{
    static const QList<RevenuePlatform> platforms{
        {
            .provider = RevenueProvider::Polar,
            .symbol = u"bolt.circle"_s,
            .title = u"POLAR"_s,
            .currency = CurrencyCode::None,
            .missingInput = MissingInput::SaidByService,
            .periodNote = {},
            .credentials = { { KeychainKey::PolarAPIKey, Key, {}, u"PERSONAL ACCESS TOKEN"_s, u"pat_…"_s,
                u"Polar → Settings → API"_s } },
        },
        {
            .provider = RevenueProvider::RevenueCat,
            .symbol = u"chart.bar.fill"_s,
            .title = u"REVENUECAT"_s,
            .currency = CurrencyCode::None,
            .missingInput = MissingInput::SaidByService,
            .periodNote = u"RC: fixed 28d"_s,
            .credentials = { { KeychainKey::RevenueCatAPIKey, Key, {}, u"SECRET API KEY"_s, u"sk_…"_s,
                                 u"Dashboard → Project → API Keys"_s },
                { KeychainKey::RevenueCatProjectID, ProjectID, {}, u"PROJECT ID"_s, u"proj_…"_s,
                    u"Dashboard → Project Settings"_s } },
        },
        {
            .provider = RevenueProvider::Dodo,
            .symbol = u"creditcard"_s,
            .title = u"DODO PAYMENTS"_s,
            .currency = CurrencyCode::UpperCase,
            .missingInput = MissingInput::SaidBefore,
            .periodNote = {},
            .credentials = { { KeychainKey::DodoAPIKey, Key, {}, u"API KEY"_s, u"dk_live_…"_s,
                u"Dodo Payments → Settings → API Keys"_s } },
        },
        {
            .provider = RevenueProvider::Stripe,
            .symbol = u"s.circle.fill"_s,
            .title = u"STRIPE"_s,
            .currency = CurrencyCode::LowerCase,
            .missingInput = MissingInput::SaidBefore,
            .periodNote = {},
            .credentials = { { KeychainKey::StripeAPIKey, Key, {}, u"RESTRICTED KEY"_s, u"rk_live_…"_s,
                                 u"Dashboard → Developers → API keys"_s },
                { KeychainKey::StripeCurrency, Currency, u"USD"_s } },
        },
        {
            .provider = RevenueProvider::LemonSqueezy,
            .symbol = u"l.circle.fill"_s,
            .title = u"LEMON SQUEEZY"_s,
            .currency = CurrencyCode::None,
            .missingInput = MissingInput::SaidBefore,
            .periodNote = {},
            .credentials = { { KeychainKey::LemonSqueezyAPIKey, Key, {}, u"API KEY"_s, u"eyJhb…"_s,
                u"Lemon Squeezy → Settings → API"_s } },
        },
    };
    return platforms;
}

const RevenuePlatform &revenuePlatform(RevenueProvider provider)
{
    for (const RevenuePlatform &platform : revenuePlatforms()) {
        if (platform.provider == provider)
            return platform;
    }
    fatal("an unknown platform");
}

const CredentialField &credentialField(KeychainKey key)
{
    return *find(key).second;
}

const RevenuePlatform &platformOf(KeychainKey key)
{
    return *find(key).first;
}

std::optional<KeychainKey> askedCredential(RevenueProvider provider, const QString &text)
{
    for (const CredentialField &field : revenuePlatform(provider).credentials) {
        if (text == requestFor(field.role))
            return field.key;
    }
    return std::nullopt;
}

QString missingInput(const RevenueQuery &query)
{
    const RevenuePlatform &platform = revenuePlatform(query.provider);
    if (query.apiKey.isBlank())
        return requestFor(Key);
    for (const CredentialField &field : platform.credentials) {
        if (field.role == ProjectID && trimmedBlanks(query.projectID).isEmpty())
            return requestFor(ProjectID);
    }
    if (platform.currency != CurrencyCode::None && query.currency.isEmpty())
        return requestFor(Currency);
    return {};
}

bool namesMissingInput(const QString &text)
{
    return text == addKey || text == addProjectID || text == setCurrency;
}

} // namespace glimmet
