#pragma once

#include "platform/keys/CallBudget.h"
#include "platform/keys/SecretServiceTypes.h"

#include <QList>
#include <QString>

#include <optional>

namespace glimmet {

class SecretServiceLink;

/// The items that have certain attributes.
struct SecretMatches {
    QList<QDBusObjectPath> unlocked;
    QList<QDBusObjectPath> locked;
};

/// What came of a change. One that awaits a prompt is made only after the prompt was started and answered.
struct SecretChange {
    enum class State { Made, AwaitsPrompt, Failed };

    State state = State::Failed;
    QDBusObjectPath prompt;
};

/// What is asked of the Secret Service, as blocking steps within the time of a call. The first time that the
/// user's collection is found locked, the service is asked to have it unlocked, which the call does not wait
/// for. No collection is ever made, and no prompt is ever taken back: gnome-keyring 42 aborts at that. Main
/// thread.
class SecretService {
public:
    /// `link` outlives this.
    explicit SecretService(SecretServiceLink &link)
        : m_link(link)
    {
    }

    /// The items with `attributes`, wherever they are. None where the user's collection cannot be read.
    std::optional<SecretMatches> find(const SecretAttributes &attributes, const CallBudget::Call &call);
    /// What is in an unlocked item.
    std::optional<QByteArray> valueOf(const QDBusObjectPath &item, const CallBudget::Call &call) const;
    SecretChange remove(const QDBusObjectPath &item, std::chrono::milliseconds timeout) const;
    /// The same, whatever comes of it: returns at once, and what is asked for next is done after it.
    void startRemoval(const QDBusObjectPath &item) const;
    /// Puts an item of text into the collection in which `find` looked last, in place of one with equal
    /// attributes.
    SecretChange add(const SecretAttributes &attributes, const QString &label, const QByteArray &text,
        std::chrono::milliseconds timeout) const;
    /// Lets the service ask the user, now or later.
    void start(const QDBusObjectPath &prompt) const;

private:
    std::optional<QDBusObjectPath> defaultCollection(const CallBudget::Call &call);
    std::optional<QDBusObjectPath> readAlias(const CallBudget::Call &call);
    std::optional<bool> isLocked(const CallBudget::Call &call) const;
    bool unlock(const CallBudget::Call &call);

    SecretServiceLink &m_link;
    QDBusObjectPath m_collection;
    bool m_hasAskedToUnlock = false;
};

} // namespace glimmet
