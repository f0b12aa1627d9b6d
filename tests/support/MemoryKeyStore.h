#pragma once

#include "platform/keys/KeyStore.h"

#include <QHash>
#include <QStringList>

#include <set>

namespace glimmet {

/// A key store in memory, which a test can lock and look into.
class MemoryKeyStore final : public KeyStore {
    Q_OBJECT

public:
    bool save(const ApiKey &value, const QString &account) override;
    LoadedKey load(const QString &account) override;
    bool remove(const QString &account) override;

    /// Until `unlock` nothing gets through.
    void lock() { m_isLocked = true; }
    void unlock();

    /// The items by their account names; a test may change them behind the program's back.
    QHash<QString, QByteArray> &items() { return m_items; }
    /// The account names that were saved, loaded or removed so far, once for each call that was made.
    QStringList saves() const { return m_saves; }
    QStringList loads() const { return m_loads; }
    QStringList removals() const { return m_removals; }
    void forgetCalls();

private:
    bool isOpenFor(const QString &account);

    QHash<QString, QByteArray> m_items;
    bool m_isLocked = false;
    bool m_hasFailed = false; ///< a call since the store was last readable
    std::set<QString> m_unread; ///< whose last load was unavailable
    QStringList m_saves;
    QStringList m_loads;
    QStringList m_removals;
};

} // namespace glimmet
