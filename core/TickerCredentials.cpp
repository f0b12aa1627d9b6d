#include "core/TickerViewModel.h"

#include <map>

/// The credentials of the TickerViewModel and the key store that keeps them.
namespace glimmet {

/// One credential as a published property.
struct TickerViewModel::Credential {
    QString TickerViewModel::*value;
    Signal changed;
    QString standIn; ///< its value where the store has none
};

const TickerViewModel::Credential &TickerViewModel::credential(KeychainKey key)
{
    using Ticker = TickerViewModel;
    static const std::map<KeychainKey, Credential> credentials{
        { KeychainKey::PolarAPIKey, { &Ticker::m_polarAPIKey, &Ticker::polarAPIKeyChanged, {} } },
        { KeychainKey::RevenueCatAPIKey,
            { &Ticker::m_revenueCatAPIKey, &Ticker::revenueCatAPIKeyChanged, {} } },
        { KeychainKey::RevenueCatProjectID,
            { &Ticker::m_revenueCatProjectID, &Ticker::revenueCatProjectIDChanged, {} } },
        { KeychainKey::DodoAPIKey, { &Ticker::m_dodoAPIKey, &Ticker::dodoAPIKeyChanged, {} } },
        { KeychainKey::StripeAPIKey, { &Ticker::m_stripeAPIKey, &Ticker::stripeAPIKeyChanged, {} } },
        { KeychainKey::StripeCurrency,
            { &Ticker::m_stripeCurrency, &Ticker::stripeCurrencyChanged, QStringLiteral("USD") } },
        { KeychainKey::LemonSqueezyAPIKey,
            { &Ticker::m_lemonSqueezyAPIKey, &Ticker::lemonSqueezyAPIKeyChanged, {} } },
    };
    return credentials.at(key);
}

void TickerViewModel::setCredential(KeychainKey key, const QString &value, Origin origin)
{
    const Credential &target = credential(key);
    publish(this->*target.value, value, target.changed);
    if (origin == Origin::KeyStore)
        return m_credentials.writeBack(value, key);
    m_credentials.save(value, key);
    fetchRevenueInRevenueMode();
}

void TickerViewModel::loadCredentials()
{
    for (const auto &[key, account] : rawValues<KeychainKey>)
        setCredential(key, m_credentials.load(key).value_or(credential(key).standIn), Origin::KeyStore);
    if (m_world.keys != nullptr)
        connect(m_world.keys, &KeyStore::becameReadable, this, &TickerViewModel::settleCredentials);
}

void TickerViewModel::settleCredentials()
{
    bool areNew = false;
    for (const KeychainKey key : m_credentials.unsettled()) {
        std::optional<QString> loaded;
        if (!m_credentials.settle(key, this->*credential(key).value, loaded))
            continue;
        setCredential(key, loaded.value_or(credential(key).standIn), Origin::KeyStore);
        areNew = true;
    }
    // Once all are there: a fetch with a new key and the old currency could be answered last.
    if (areNew)
        fetchRevenueInRevenueMode();
}

void TickerViewModel::setPolarAPIKey(const QString &key)
{
    setCredential(KeychainKey::PolarAPIKey, key);
}

void TickerViewModel::setRevenueCatAPIKey(const QString &key)
{
    setCredential(KeychainKey::RevenueCatAPIKey, key);
}

void TickerViewModel::setRevenueCatProjectID(const QString &id)
{
    setCredential(KeychainKey::RevenueCatProjectID, id);
}

void TickerViewModel::setDodoAPIKey(const QString &key)
{
    setCredential(KeychainKey::DodoAPIKey, key);
}

void TickerViewModel::setStripeAPIKey(const QString &key)
{
    setCredential(KeychainKey::StripeAPIKey, key);
}

void TickerViewModel::setStripeCurrency(const QString &currency)
{
    setCredential(KeychainKey::StripeCurrency, currency);
}

void TickerViewModel::setLemonSqueezyAPIKey(const QString &key)
{
    setCredential(KeychainKey::LemonSqueezyAPIKey, key);
}

} // namespace glimmet
