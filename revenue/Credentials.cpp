#include "revenue/Credentials.h"

namespace glimmet {

std::optional<QString> Credentials::load(KeychainKey key)
{
    if (m_store == nullptr)
        return std::nullopt;
    const LoadedKey loaded = m_store->load(accountName(key));
    if (std::holds_alternative<KeyUnavailable>(loaded))
        m_unread.insert(key);
    else
        m_unread.erase(key);
    const auto *found = std::get_if<ApiKey>(&loaded);
    return found ? std::optional(found->characters()) : std::nullopt;
}

void Credentials::writeBack(const QString &value, KeychainKey key)
{
    if (m_store == nullptr)
        return;
    const bool isKnown = !m_unread.contains(key);
    if (!m_store->save(ApiKey(value), accountName(key)) && isKnown)
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
    std::set<KeychainKey> keys = m_unread;
    keys.insert(m_unsaved.begin(), m_unsaved.end());
    keys.insert(m_unreturned.begin(), m_unreturned.end());
    return keys;
}

bool Credentials::settle(KeychainKey key, const QString &current, std::optional<QString> &loaded)
{
    loaded = load(key);
    if (m_unread.contains(key))
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
