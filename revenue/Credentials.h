#pragma once

#include "platform/keys/KeyStore.h"
#include "revenue/KeyConsent.h"
#include "revenue/RevenueChoices.h"

#include <map>
#include <optional>
#include <set>

namespace glimmet {

/// What is known of a credential in the key store.
struct KeyStatus {
    enum class State {
        Saved, ///< the store holds exactly the value
        Absent, ///< there is no value, neither here nor in the store
        Unknown, ///< the store has not told yet
        KeptUntilEnd, ///< the store did not take the value, which is lost with the program
    };

    State state = State::Absent;
    KeyObstacle obstacle = KeyObstacle::None; ///< what stands between, where there is anything

    friend bool operator==(const KeyStatus &, const KeyStatus &) = default;
};

/// Keeps the credentials and the key store in step, also while the store cannot be read: remembers which
/// values are still to be written; the store knows which items are unread. Has the store ask the user where
/// the user has caused it. Main thread.
class Credentials {
public:
    /// `store` outlives this; without one, credentials live as long as the program.
    explicit Credentials(KeyStore *store)
        : m_store(store)
    {
    }

    /// The stored value; nothing where there is none, or none that can be read now.
    std::optional<ApiKey> load(KeychainKey key);
    /// Writes what was loaded, or what stands in for it, back to its item. Where the item could not be read,
    /// that is no value of the user's, and nothing is owed to the store.
    void writeBack(const ApiKey &value, KeychainKey key);
    /// Writes what the user chose, without asking the user anything. Where that fails, it is remembered until
    /// it is done. True where asking the user may help, and may be done.
    bool save(const ApiKey &value, KeychainKey key);
    /// Writes it once more where it is not saved yet, and has the user asked for what that takes.
    void askToSave(const ApiKey &value, KeychainKey key);
    /// What is known of the item of a credential that is `current`.
    KeyStatus status(const ApiKey &current, KeychainKey key) const;

    /// The items that the store has still to tell or to take.
    std::set<KeychainKey> unsettled() const;
    /// Whether the store has not answered for one of them.
    bool areAnyUnanswered() const { return isAnyKeptFromBy(KeyObstacle::NoService); }
    /// Tries once more for an item whose value is `current`: what the user chose meanwhile is saved and wins.
    /// True where it is instead for the caller to take over `loaded` (nothing: the item is absent) and write
    /// it back.
    bool settle(KeychainKey key, const ApiKey &current, std::optional<ApiKey> &loaded);
    /// Tries for the last time, for what would be lost with the program, without asking the user.
    void finish(KeychainKey key, const ApiKey &current);

    /// The user turns to the field of a key.
    void beginEditing() { m_consent.beginEditing(); }
    /// Has the store ask the user to open it, where something is locked and the user's act allows it.
    void askToUnlock(KeyConsent::Act act);
    void noteRefusal() { m_consent.noteRefusal(); }
    /// The store may be open now, in which case what was refused before is forgotten.
    void noteOpening();

private:
    bool keep(const ApiKey &value, KeychainKey key, KeyStore::Cause cause);
    KeyStore::Cause causeOfAsking();
    bool write(const ApiKey &value, KeychainKey key, KeyStore::Cause cause);
    bool isUnread(KeychainKey key) const;
    bool isAnyKeptFromBy(KeyObstacle obstacle) const;
    bool isKept(const ApiKey &value, KeychainKey key) const;
    void noteObstacle(KeychainKey key);
    KeyObstacle obstacleOf(KeychainKey key) const;

    KeyStore *m_store;
    KeyConsent m_consent;
    std::map<KeychainKey, KeyObstacle> m_obstacles; ///< at the last call
    std::set<KeychainKey> m_unsaved; ///< whose value the user chose and the store did not take
    std::set<KeychainKey> m_unreturned; ///< whose loaded value the store did not take back
};

} // namespace glimmet
