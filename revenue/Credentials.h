#pragma once

#include "platform/keys/KeyStore.h"
#include "revenue/RevenueChoices.h"

#include <optional>
#include <set>

namespace glimmet {

/// Keeps the credentials and the key store in step, also while the store cannot be read: remembers which
/// values are still to be written; the store knows which items are unread. Main thread.
class Credentials {
public:
    /// `store` outlives this; without one, credentials live as long as the program.
    explicit Credentials(KeyStore *store)
        : m_store(store)
    {
    }

    /// The stored value; nothing where there is none, or none that can be read now.
    std::optional<QString> load(KeychainKey key);
    /// Writes what was loaded, or what stands in for it, back to its item. Where the item could not be read,
    /// that is no value of the user's, and nothing is owed to the store.
    void writeBack(const QString &value, KeychainKey key);
    /// Writes what the user chose. Where that fails, it is remembered until it is done.
    void save(const QString &value, KeychainKey key);

    /// The items that the store has still to tell or to take.
    std::set<KeychainKey> unsettled() const;
    /// Tries once more for an item whose value is `current`: what the user chose meanwhile is saved and wins.
    /// True where it is instead for the caller to take over `loaded` (nothing: the item is absent) and write
    /// it back.
    bool settle(KeychainKey key, const QString &current, std::optional<QString> &loaded);

private:
    bool isUnread(KeychainKey key) const;

    KeyStore *m_store;
    std::set<KeychainKey> m_unsaved; ///< whose value the user chose and the store did not take
    std::set<KeychainKey> m_unreturned; ///< whose loaded value the store did not take back
};

} // namespace glimmet
