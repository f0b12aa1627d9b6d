#include "ui/KeyFaces.h"

#include "revenue/KeychainKey.h"
#include "revenue/RevenueChoices.h"
#include "ui/CaseNumbers.h"

namespace glimmet {

namespace {

struct KeyFace {
    KeychainKey key{};
    RevenueProvider provider{};
    QString caption;
    QString placeholder;
    QString hint;
    QString property;
};

const QList<KeyFace> &faces()
{
    static const QList<KeyFace> all{
        { KeychainKey::PolarAPIKey, RevenueProvider::Polar, QStringLiteral("PERSONAL ACCESS TOKEN"),
            QStringLiteral("pat_…"), QStringLiteral("Polar → Settings → API"),
            QStringLiteral("polarAPIKey") },
        { KeychainKey::RevenueCatAPIKey, RevenueProvider::RevenueCat, QStringLiteral("SECRET API KEY"),
            QStringLiteral("sk_…"), QStringLiteral("Dashboard → Project → API Keys"),
            QStringLiteral("revenueCatAPIKey") },
        { KeychainKey::RevenueCatProjectID, RevenueProvider::RevenueCat, QStringLiteral("PROJECT ID"),
            QStringLiteral("proj_…"), QStringLiteral("Dashboard → Project Settings"),
            QStringLiteral("revenueCatProjectID") },
        { KeychainKey::DodoAPIKey, RevenueProvider::Dodo, QStringLiteral("API KEY"),
            QStringLiteral("dk_live_…"), QStringLiteral("Dodo Payments → Settings → API Keys"),
            QStringLiteral("dodoAPIKey") },
        { KeychainKey::StripeAPIKey, RevenueProvider::Stripe, QStringLiteral("RESTRICTED KEY"),
            QStringLiteral("rk_live_…"), QStringLiteral("Dashboard → Developers → API keys"),
            QStringLiteral("stripeAPIKey") },
        { KeychainKey::LemonSqueezyAPIKey, RevenueProvider::LemonSqueezy, QStringLiteral("API KEY"),
            QStringLiteral("eyJhb…"), QStringLiteral("Lemon Squeezy → Settings → API"),
            QStringLiteral("lemonSqueezyAPIKey") },
    };
    return all;
}

KeyFace face(int key)
{
    for (const KeyFace &candidate : faces()) {
        if (static_cast<int>(candidate.key) == key)
            return candidate;
    }
    return {};
}

} // namespace

QList<int> KeyFaces::sections()
{
    return caseNumbers<RevenueProvider>();
}

QString KeyFaces::title(int provider)
{
    switch (static_cast<RevenueProvider>(provider)) {
    case RevenueProvider::Polar:
        return QStringLiteral("POLAR");
    case RevenueProvider::RevenueCat:
        return QStringLiteral("REVENUECAT");
    case RevenueProvider::Dodo:
        return QStringLiteral("DODO PAYMENTS");
    case RevenueProvider::Stripe:
        return QStringLiteral("STRIPE");
    case RevenueProvider::LemonSqueezy:
        return QStringLiteral("LEMON SQUEEZY");
    }
    return {};
}

QVariantList KeyFaces::fields(int provider)
{
    QVariantList keys;
    for (const KeyFace &candidate : faces()) {
        if (static_cast<int>(candidate.provider) == provider)
            keys.append(static_cast<int>(candidate.key));
    }
    return keys;
}

QString KeyFaces::caption(int key)
{
    return face(key).caption;
}

QString KeyFaces::name(int key)
{
    const KeyFace found = face(key);
    return title(static_cast<int>(found.provider)) + u' ' + found.caption;
}

QString KeyFaces::placeholder(int key)
{
    return face(key).placeholder;
}

QString KeyFaces::hint(int key)
{
    return face(key).hint;
}

QString KeyFaces::property(int key)
{
    return face(key).property;
}

QString KeyFaces::status(bool isSaved)
{
    return isSaved ? QStringLiteral("Key saved in Keychain") : QStringLiteral("No key saved");
}

} // namespace glimmet
