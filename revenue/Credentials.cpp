#include "revenue/Credentials.h"

namespace glimmet {

std::optional<QString> Credentials::load(KeychainKey key)
{
    if (m_store == nullptr)
        return std::nullopt;
    const LoadedKey loaded = m_store->load(accountName(key));
    const auto *found = std::get_if<ApiKey>(&loaded);
    return found ? std::optional(found->characters()) : std::nullopt;
}

void Credentials::writeBack(const QString &value, KeychainKey key)
{
    if (m_store == nullptr)
        return;
    if (!m_store->save(ApiKey(value), accountName(key)) && !isUnread(key))
        m_unreturned.insert(key);
    else
        m_unreturned.erase(key);
}

void Credentials::save(const QString &value, KeychainKey key)
{
    if (m_store == nullptr)
        return;
    if (m_store->save(ApiKey(value), accountName(key)))
        m_unsaved.erase(key);
    else
        m_unsaved.insert(key);
}

std::set<KeychainKey> Credentials::unsettled() const
{
    std::set<KeychainKey> keys = m_unsaved;
    keys.insert(m_unreturned.begin(), m_unreturned.end());
    for (const auto &[key, account] : rawValues<KeychainKey>)
        if (isUnread(key))
            keys.insert(key);
    return keys;
}

bool Credentials::isUnread(KeychainKey key) const
{
    return m_store != nullptr && m_store->isUnread(accountName(key));
}

bool Credentials::settle(KeychainKey key, const QString &current, std::optional<QString> &loaded)
{
    loaded = load(key);
    if (isUnread(key))
        return false;
    // It may have been written after all: after a prompt, or by a call whose answer came too late.
    const bool isThere = loaded == current;
    if (isThere) {
        m_unsaved.erase(key);
        m_unreturned.erase(key);
        return false;
    }
    if (m_unsaved.contains(key)) {
        save(current, key);
        return false;
    }
    // The removal went through and the addition did not: this is the one copy.
    if (m_unreturned.contains(key) && !loaded)
        loaded = current;
    return true;
}

} // namespace glimmet
