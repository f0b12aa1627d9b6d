#include "tests/support/MemoryKeyStore.h"

#include "platform/Utf8.h"

namespace glimmet {

bool MemoryKeyStore::save(const ApiKey &value, const QString &account)
{
    m_saves.append(account);
    const std::optional<QByteArray> text = exactUtf8(value.characters());
    if (!text || !isOpenFor(account))
        return false;
    m_items.insert(account, *text);
    return true;
}

LoadedKey MemoryKeyStore::load(const QString &account)
{
    m_loads.append(account);
    if (m_isLocked) {
        m_hasFailed = true;
        m_unread.insert(account);
        return KeyUnavailable{};
    }
    m_unread.erase(account);
    const auto found = m_items.constFind(account);
    if (found == m_items.constEnd())
        return KeyAbsent{};
    const std::optional<QString> text = textFromUtf8(*found);
    return text ? LoadedKey(ApiKey(*text)) : KeyAbsent{};
}

bool MemoryKeyStore::remove(const QString &account)
{
    m_removals.append(account);
    return isOpenFor(account) && m_items.remove(account) > 0;
}

void MemoryKeyStore::unlock()
{
    m_isLocked = false;
    if (!std::exchange(m_hasFailed, false))
        return;
    QMetaObject::invokeMethod(this, [this] { emit becameReadable(); }, Qt::QueuedConnection);
}

void MemoryKeyStore::forgetCalls()
{
    m_saves.clear();
    m_loads.clear();
    m_removals.clear();
}

bool MemoryKeyStore::isOpenFor(const QString &account)
{
    m_hasFailed = m_hasFailed || m_isLocked;
    return !m_isLocked && !m_unread.contains(account);
}

} // namespace glimmet
