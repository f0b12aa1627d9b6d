#pragma once

#include "platform/keys/CallBudget.h"
#include "platform/keys/KeyStore.h"
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

/// What is asked of the Secret Service, as blocking steps within the time of a call. None of them has the
/// service ask the user. Main thread.
class SecretService {
public:
    /// `link` outlives this.
    explicit SecretService(SecretServiceLink &link)
        : m_link(link)
    {
    }

    /// The items with `attributes`, wherever they are. None where the user's collection cannot be read.
    std::optional<SecretMatches> find(const SecretAttributes &attributes, CallBudget::Call &call);
    /// From now on `find` takes a collection that it has seen open for open, as long as items are found.
    void trustCollection() { m_isTrusting = true; }
    /// Each `find` asks for the collection anew.
    void distrustCollection() { m_isTrusting = false; }
    /// What kept the last `find` from the items.
    KeyObstacle obstacle() const { return m_obstacle; }
    /// Unlocks the user's collection, or the items with `attributes` where only they are locked; where there
    /// is no collection yet and `mayMake`, makes one.
    SecretChange open(const SecretAttributes &attributes, bool mayMake, CallBudget::Call &call);
    /// What is in an unlocked item; none where it has been locked meanwhile.
    std::optional<QByteArray> valueOf(const QDBusObjectPath &item, CallBudget::Call &call) const;
    SecretChange remove(const QDBusObjectPath &item, CallBudget::Call &call) const;
    /// The same, whatever comes of it: returns at once, and what is asked for next is done after it.
    void startRemoval(const QDBusObjectPath &item) const;
    /// Puts an item of text into the collection in which `find` looked last, in place of one with equal
    /// attributes.
    SecretChange add(const SecretAttributes &attributes, const QString &label, const QByteArray &text,
        CallBudget::Call &call, std::chrono::milliseconds patience) const;

private:
    KeyObstacle findCollection(CallBudget::Call &call);
    std::optional<QDBusObjectPath> defaultCollection(CallBudget::Call &call);
    std::optional<QDBusObjectPath> readAlias(CallBudget::Call &call);
    std::optional<bool> isLocked(
        const QDBusObjectPath &object, const QString &interface, CallBudget::Call &call) const;
    std::optional<SecretMatches> search(const SecretAttributes &attributes, CallBudget::Call &call) const;
    SecretChange make(CallBudget::Call &call) const;
    SecretChange unlock(const QList<QDBusObjectPath> &objects, CallBudget::Call &call) const;

    SecretServiceLink &m_link;
    QDBusObjectPath m_collection;
    bool m_isTrusting = false;
    bool m_isSeenOpen = false;
    KeyObstacle m_obstacle = KeyObstacle::None;
};

} // namespace glimmet
