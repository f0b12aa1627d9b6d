#pragma once

#include "revenue/RevenueChoices.h"

#include <QList>
#include <QString>

#include <optional>

namespace glimmet {

struct RevenueQuery;

/// What a credential is for its platform.
enum class CredentialRole { Key, ProjectID, Currency };

/// One item of the key store, and how it is entered.
struct CredentialField {
    KeychainKey key{};
    CredentialRole role{};
    QString standIn{}; ///< its value where the store has none
    QString caption{}; ///< over its field in the sheet of keys; empty: it is entered elsewhere
    QString placeholder{};
    QString hint{}; ///< where on the platform's pages it is found
};

/// Everything about a platform but how it is asked. This is where a new one begins.
struct RevenuePlatform {
    /// How it wants the currency, if it is asked in one: a credential of that role, or for Dodo the choice
    /// that is kept nowhere.
    enum class CurrencyCode { None, UpperCase, LowerCase };
    /// Who says what the user has still to enter: the service, which is then asked in any case, or the report
    /// before it asks.
    enum class MissingInput { SaidByService, SaidBefore };

    RevenueProvider provider{};
    QString symbol; ///< on its chip
    QString title; ///< of its section in the sheet of keys
    CurrencyCode currency{};
    MissingInput missingInput{};
    QString periodNote; ///< what there is to say where it does not heed the period; empty elsewhere
    QList<CredentialField> credentials; ///< in the order of their fields; the first one is the key itself
};

/// In the order of their chips, which is also that in which their credentials are loaded.
const QList<RevenuePlatform> &revenuePlatforms();
const RevenuePlatform &revenuePlatform(RevenueProvider provider);

/// Any credential; one that no platform has ends the process.
const CredentialField &credentialField(KeychainKey key);
/// Whose it is.
const RevenuePlatform &platformOf(KeychainKey key);

/// The credential of the platform that such a text asks for; nothing for any other text.
std::optional<KeychainKey> askedCredential(RevenueProvider provider, const QString &text);

/// What the user has still to enter for this question, as the text that asks for it; empty where it can be
/// asked.
QString missingInput(const RevenueQuery &query);
/// Whether `text` is one of those.
bool namesMissingInput(const QString &text);

} // namespace glimmet
