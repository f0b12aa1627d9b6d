#include "tests/support/MemoryKeyStore.h"

#include "platform/Text.h"

namespace glimmet {

bool MemoryKeyStore::write(const ApiKey &value, const QString &account, Cause cause)
{
    m_saves.append(account);
    m_causes.append(cause);
    const std::optional<QByteArray> text = exactUtf8(value.characters());
    if (!isOpen())
        return false;
    m_obstacle = text ? m_refusal : KeyObstacle::Refused;
    if (m_obstacle != KeyObstacle::None)
        return false;
    m_items.insert(account, *text);
    return true;
}

LoadedKey MemoryKeyStore::read(const QString &account)
{
    m_loads.append(account);
    if (!isOpen())
        return KeyUnavailable{};
    const auto found = m_items.constFind(account);
    if (found == m_items.constEnd())
        return KeyAbsent{};
    const std::optional<QString> text = textFromUtf8(*found);
    return text ? LoadedKey(ApiKey(*text)) : KeyAbsent{};
}

bool MemoryKeyStore::erase(const QString &account, Cause /*cause*/)
{
    m_removals.append(account);
    return isOpen() && m_items.remove(account) > 0;
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
    m_causes.clear();
    m_loads.clear();
    m_removals.clear();
}

bool MemoryKeyStore::isOpen()
{
    m_hasFailed = m_hasFailed || m_isLocked;
    m_obstacle = m_isLocked ? m_lockedBy : KeyObstacle::None;
    return !m_isLocked;
}

} // namespace glimmet
