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
    /// The same, of which the program hears nothing.
    void openUnheard() { m_isLocked = false; }

    /// The items by their account names; a test may change them behind the program's back.
    QHash<QString, QByteArray> &items() { return m_items; }
    /// The account names that were to be written, read or erased so far, once for each call that got here.
    QStringList saves() const { return m_saves; }
    QList<Cause> causes() const { return m_causes; } ///< of the saves
    QStringList loads() const { return m_loads; }
    QStringList removals() const { return m_removals; }
    void forgetCalls();

    KeyObstacle obstacle() const override { return m_obstacle; }
    void ask(Wish wish) override { m_wishes.append(wish); }
    bool isAsking() const override { return false; }
    /// What the user was to be asked for so far.
    QList<Wish> wishes() const { return m_wishes; }
    /// Takes nothing from now on, for that reason.
    void setRefusal(KeyObstacle obstacle) { m_refusal = obstacle; }
    /// What locks it.
    void setObstacle(KeyObstacle obstacle) { m_lockedBy = obstacle; }

private:
    bool write(const ApiKey &value, const QString &account, Cause cause) override;
    LoadedKey read(const QString &account) override;
    bool erase(const QString &account, Cause cause) override;
    bool isOpen();

    QHash<QString, QByteArray> m_items;
    bool m_isLocked = false;
    bool m_hasFailed = false; ///< a call since the store was last readable
    KeyObstacle m_refusal = KeyObstacle::None;
    KeyObstacle m_lockedBy = KeyObstacle::Locked;
    KeyObstacle m_obstacle = KeyObstacle::None;
    QList<Wish> m_wishes;
    QStringList m_saves;
    QList<Cause> m_causes;
    QStringList m_loads;
    QStringList m_removals;
};

} // namespace glimmet
