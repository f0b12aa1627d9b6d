#include "tests/support/MemoryKeyStore.h"

#include "platform/Utf8.h"

namespace glimmet {

bool MemoryKeyStore::save(const ApiKey &value, KeychainKey key)
{
    m_saves.append(accountName(key));
    const std::optional<QByteArray> text = exactUtf8(value.characters());
    if (!text || !isOpenFor(key))
        return false;
    m_items.insert(accountName(key), *text);
    return true;
}

LoadedKey MemoryKeyStore::load(KeychainKey key)
{
    m_loads.append(accountName(key));
    if (m_isLocked) {
        m_hasFailed = true;
        m_unread.insert(key);
        return KeyUnavailable{};
    }
    m_unread.erase(key);
    const auto found = m_items.constFind(accountName(key));
    if (found == m_items.constEnd())
        return KeyAbsent{};
    const std::optional<QString> text = textFromUtf8(*found);
    return text ? LoadedKey(ApiKey(*text)) : KeyAbsent{};
}

bool MemoryKeyStore::remove(KeychainKey key)
{
    m_removals.append(accountName(key));
    return isOpenFor(key) && m_items.remove(accountName(key)) > 0;
}

void MemoryKeyStore::unlock()
{
    m_isLocked = false;
    if (!std::exchange(m_hasFailed, false))
        return;
    QMetaObject::invokeMethod(
        this, [this] { emit becameReadable(); }, Qt::QueuedConnection);
}

void MemoryKeyStore::forgetCalls()
{
    m_saves.clear();
    m_loads.clear();
    m_removals.clear();
}

bool MemoryKeyStore::isOpenFor(KeychainKey key)
{
    m_hasFailed = m_hasFailed || m_isLocked;
    return !m_isLocked && !m_unread.contains(key);
}

} // namespace glimmet
