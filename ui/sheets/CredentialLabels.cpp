#include "ui/sheets/CredentialLabels.h"

#include "revenue/RevenuePlatforms.h"
#include "ui/editors/CaseNumbers.h"

namespace glimmet {

namespace {

const CredentialField &field(int key)
{
    return credentialField(static_cast<KeychainKey>(key));
}

QString reason(KeyObstacle obstacle)
{
    switch (obstacle) {
    case KeyObstacle::Locked:
        return QStringLiteral("Keyring locked");
    case KeyObstacle::NoCollection:
        return QStringLiteral("No keyring yet");
    case KeyObstacle::NoService:
        return QStringLiteral("No keyring service");
    case KeyObstacle::None:
    case KeyObstacle::AwaitsUser:
    case KeyObstacle::Refused:
        return QStringLiteral("Not saved");
    }
    Q_UNREACHABLE();
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

int CredentialLabels::asked(int provider, const QString &text)
{
    const auto key = askedCredential(static_cast<RevenueProvider>(provider), text);
    return key && !credentialField(*key).caption.isEmpty() ? static_cast<int>(*key) : -1;
}

QString CredentialLabels::status(bool isSaved)
{
    return isSaved ? QStringLiteral("Key saved in Keychain") : QStringLiteral("No key saved");
}

QString CredentialLabels::trouble(const KeyStatus &status, bool isEmpty)
{
    const bool isLocked = status.obstacle == KeyObstacle::Locked;
    switch (status.state) {
    case KeyStatus::State::Saved:
    case KeyStatus::State::Absent:
        return {};
    case KeyStatus::State::Unknown:
        return isLocked ? QStringLiteral("The keyring is locked")
                        : QStringLiteral("No keyring service answers");
    case KeyStatus::State::KeptUntilEnd:
        if (isEmpty)
            return isLocked ? QStringLiteral("The keyring is locked")
                            : QStringLiteral("Not cleared in the keyring");
        return reason(status.obstacle) + QStringLiteral(": kept until glimmet quits");
    }
    Q_UNREACHABLE();
}

QString CredentialLabels::remedy(const KeyStatus &status)
{
    const bool isInTrouble = !trouble(status, false).isEmpty();
    if (isInTrouble && status.obstacle == KeyObstacle::Locked)
        return QStringLiteral("Unlock");
    if (isInTrouble && status.obstacle == KeyObstacle::NoCollection)
        return QStringLiteral("Create");
    if (isInTrouble && status.obstacle == KeyObstacle::AwaitsUser)
        return QStringLiteral("Save");
    return {};
}

} // namespace glimmet
