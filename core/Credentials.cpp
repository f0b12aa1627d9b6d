#include "core/Credentials.h"

namespace glimmet {

std::optional<QString> Credentials::load(KeychainKey key)
{
    if (m_store == nullptr)
        return std::nullopt;
    const LoadedKey loaded = m_store->load(key);
    if (std::holds_alternative<KeyUnavailable>(loaded))
        m_unread.insert(key);
    else
        m_unread.erase(key);
    const auto *found = std::get_if<ApiKey>(&loaded);
    return found ? std::optional(found->characters()) : std::nullopt;
}

void Credentials::writeBack(const QString &value, KeychainKey key)
{
    const bool isKnown = !m_unread.contains(key);
    if (isKnown)
        save(value, key);
    else
        m_store->save(ApiKey(value), key); // The store refuses, but it is the store's to refuse.
}

void Credentials::save(const QString &value, KeychainKey key)
{
    if (m_store == nullptr)
        return;
    if (m_store->save(ApiKey(value), key))
        m_unsaved.erase(key);
    else
        m_unsaved.insert(key);
}

std::set<KeychainKey> Credentials::unsettled() const
{
    std::set<KeychainKey> keys = m_unread;
    keys.insert(m_unsaved.begin(), m_unsaved.end());
    return keys;
}

bool Credentials::settle(KeychainKey key, const QString &current, std::optional<QString> &loaded)
{
    loaded = load(key);
    if (m_unread.contains(key))
        return false;
    if (!m_unsaved.contains(key))
        return true;
    save(current, key);
    return false;
}

} // namespace glimmet
