#pragma once

#include "platform/keys/KeyStore.h"

#include <QHash>
#include <QStringList>

namespace glimmet {

/// A key store in memory, which a test can lock and look into.
class MemoryKeyStore final : public KeyStore {
    Q_OBJECT

public:
    /// Until `unlock` nothing gets through.
    void lock() { m_isLocked = true; }
    void unlock();

    /// The items by their account names; a test may change them behind the program's back.
    QHash<QString, QByteArray> &items() { return m_items; }
    /// The account names that were to be written, read or erased so far, once for each call that got here.
    QStringList saves() const { return m_saves; }
    QStringList loads() const { return m_loads; }
    QStringList removals() const { return m_removals; }
    void forgetCalls();

private:
    bool write(const ApiKey &value, const QString &account) override;
    LoadedKey read(const QString &account) override;
    bool erase(const QString &account) override;
    bool isOpen();

    QHash<QString, QByteArray> m_items;
    bool m_isLocked = false;
    bool m_hasFailed = false; ///< a call since the store was last readable
    QStringList m_saves;
    QStringList m_loads;
    QStringList m_removals;
};

} // namespace glimmet
