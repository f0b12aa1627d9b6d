#pragma once

#include "platform/keys/ApiKey.h"

#include <QObject>
#include <QString>

#include <set>
#include <variant>

namespace glimmet {

/// The store has been read, and there is no such item, or none that is a text.
struct KeyAbsent {
    friend bool operator==(const KeyAbsent &, const KeyAbsent &) = default;
};

/// The store could not be read: it is locked, gone, or does not answer. What is in it is unknown.
struct KeyUnavailable {
    friend bool operator==(const KeyUnavailable &, const KeyUnavailable &) = default;
};

using LoadedKey = std::variant<ApiKey, KeyAbsent, KeyUnavailable>;

/// What keeps a call from the store.
enum class KeyObstacle {
    None,
    Locked, ///< the user has to unlock it
    NoCollection, ///< there is a service, in which the user has no collection yet
    NoService, ///< no service, no bus, or none that answers in time
    AwaitsUser, ///< the service wants to ask the user about the value, and may not, or was not agreed to
    Refused, ///< the service did not take the value, or it is no text
};

/// The user's secrets, one item an account. Every call returns soon, also while the store hangs. Main thread.
class KeyStore : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    /// Who wants an item written or removed. Where the store has to ask the user for it, it does so only for
    /// what the user has caused. What the program writes of its own accord is not written again where the
    /// store holds it.
    enum class Cause { Program, User };
    /// What the store may ask the user for, by a dialog of its own.
    enum class Wish { Unlocking, UnlockingOrMaking };

    /// Replaces the item; an empty value is an item as well. False where it was not written: the store could
    /// not be reached, the value has no UTF-8 form, or the item is unread. The latter protects a key that
    /// only could not be read: until a load gives a definite answer, nothing writes or removes it.
    bool save(const ApiKey &value, const QString &account, Cause cause = Cause::Program);

    LoadedKey load(const QString &account);

    /// True where an item was removed; false where there was none, and for the same reasons as `save`.
    bool remove(const QString &account, Cause cause = Cause::Program);

    /// Whether the last load of `account` was unavailable.
    bool isUnread(const QString &account) const { return m_unread.contains(account); }

    /// What kept the last call from the store.
    virtual KeyObstacle obstacle() const = 0;

    /// Has the store ask the user for what keeps it closed, unless it is open or asks already.
    /// `becameReadable` tells when that was of use, `refused` when it was not.
    virtual void ask(Wish wish) = 0;
    /// Whether a dialog that the store shows for this program is up.
    virtual bool isAsking() const = 0;

signals:
    /// After a call that did not reach the store: it can be read again, or tells by now why not, so load
    /// again what was unavailable and then save what was refused. Comes from the event loop, never within a
    /// call.
    void becameReadable();
    void isAskingChanged();
    /// The user has dismissed a dialog of the store.
    void refused();

private:
    /// The three as each store does them, of which writing and erasing are never asked for an unread item.
    virtual bool write(const ApiKey &value, const QString &account, Cause cause) = 0;
    virtual LoadedKey read(const QString &account) = 0;
    virtual bool erase(const QString &account, Cause cause) = 0;

    std::set<QString> m_unread;
};

} // namespace glimmet
