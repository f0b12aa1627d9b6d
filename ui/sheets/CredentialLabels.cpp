#include "ui/sheets/CredentialLabels.h"

#include "revenue/RevenuePlatforms.h"
#include "ui/editors/CaseNumbers.h"

namespace glimmet {

namespace {

const CredentialField &field(int key)
{
    return credentialField(static_cast<KeychainKey>(key));
}

} // namespace

QList<int> CredentialLabels::sections()
{
    return caseNumbers<RevenueProvider>();
}

QString CredentialLabels::title(int provider)
{
    return revenuePlatform(static_cast<RevenueProvider>(provider)).title;
}

QVariantList CredentialLabels::fields(int provider)
{
    QVariantList keys;
    for (const CredentialField &credential :
        revenuePlatform(static_cast<RevenueProvider>(provider)).credentials) {
        if (!credential.caption.isEmpty())
            keys.append(static_cast<int>(credential.key));
    }
    return keys;
}

QString CredentialLabels::caption(int key)
{
    return field(key).caption;
}

QString CredentialLabels::name(int key)
{
    return platformOf(static_cast<KeychainKey>(key)).title + u' ' + field(key).caption;
}

QString CredentialLabels::placeholder(int key)
{
    return field(key).placeholder;
}

QString CredentialLabels::hint(int key)
{
    return field(key).hint;
}

QString CredentialLabels::status(bool isSaved)
{
    return isSaved ? QStringLiteral("Key saved in Keychain") : QStringLiteral("No key saved");
}

} // namespace glimmet
