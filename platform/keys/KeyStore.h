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

/// The user's secrets, one item an account. Every call returns soon, also while the store hangs. Main thread.
class KeyStore : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    /// Replaces the item; an empty value is an item as well. False where it was not written: the store could
    /// not be reached, the value has no UTF-8 form, or the item is unread. The latter protects a key that
    /// only could not be read: until a load gives a definite answer, nothing writes or removes it.
    bool save(const ApiKey &value, const QString &account);

    LoadedKey load(const QString &account);

    /// True where an item was removed; false where there was none, and for the same reasons as `save`.
    bool remove(const QString &account);

    /// Whether the last load of `account` was unavailable.
    bool isUnread(const QString &account) const { return m_unread.contains(account); }

signals:
    /// After a call that did not reach the store: it can be read again, so load again what was unavailable
    /// and then save what was refused. Comes from the event loop, never within a call.
    void becameReadable();

private:
    /// The three as each store does them, of which writing and erasing are never asked for an unread item.
    virtual bool write(const ApiKey &value, const QString &account) = 0;
    virtual LoadedKey read(const QString &account) = 0;
    virtual bool erase(const QString &account) = 0;

    std::set<QString> m_unread;
};

} // namespace glimmet
