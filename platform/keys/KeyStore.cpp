#include "platform/keys/KeyStore.h"

namespace glimmet {

bool KeyStore::save(const ApiKey &value, const QString &account, Cause cause)
{
    return !isUnread(account) && write(value, account, cause);
}

LoadedKey KeyStore::load(const QString &account)
{
    LoadedKey loaded = read(account);
    if (std::holds_alternative<KeyUnavailable>(loaded))
        m_unread.insert(account);
    else
        m_unread.erase(account);
    return loaded;
}

bool KeyStore::remove(const QString &account, Cause cause)
{
    return !isUnread(account) && erase(account, cause);
}

} // namespace glimmet
