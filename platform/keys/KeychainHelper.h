#pragma once

#include "platform/keys/CallBudget.h"
#include "platform/keys/KeyStore.h"
#include "platform/keys/SecretPrompts.h"
#include "platform/keys/SecretService.h"
#include "platform/keys/SecretServiceLink.h"
#include "platform/keys/SecretServiceWatch.h"

#include <functional>
#include <map>
#include <utility>

namespace glimmet {

class SessionBus;

/// The key store in the desktop's Secret Service: an item an account, found by the attributes `service` and
/// `account` alone, so that items made by other tools are found too.
///
/// Until the event loop runs for the first time all calls share three seconds, later each call has one and a
/// half, of which no question to the service may take more than 300 ms. Once the service has let one run out
/// of time, calls end at once until it answers again.
class KeychainHelper final : public KeyStore {
    Q_OBJECT

public:
    /// What it is given outlives the store; without a bus nothing is available.
    KeychainHelper(const SessionBus &bus, Timers &timers, const SteadyClock &clock,
        CallLimits limits = { std::chrono::seconds(3), std::chrono::milliseconds(1500),
            std::chrono::milliseconds(300) },
        QObject *parent = nullptr);

    KeyObstacle obstacle() const override { return m_obstacle; }
    void ask(Wish wish) override;
    bool isAsking() const override { return m_prompts.isAnyUp(); }
    /// `parent` tells the X11 window that a dialog of the service shall belong to; 0 for none.
    void setDialogParent(std::function<quint32()> parent) { m_prompts.setParentWindow(std::move(parent)); }

private:
    /// An update is a removal and an addition. The addition is tried again on a fresh connection: after the
    /// removal it is the one copy of the value.
    bool write(const ApiKey &value, const QString &account, Cause cause) override;
    LoadedKey read(const QString &account) override;
    bool erase(const QString &account, Cause cause) override;
    LoadedKey read(const QString &account, CallBudget::Call &call);
    bool replace(const QString &account, const QByteArray &text, Cause cause, CallBudget::Call &call);
    /// Whether it is what the start-up has just read.
    bool isJustRead(const QString &account, const QByteArray &text) const;
    bool holds(const SecretMatches &matches, const QByteArray &text, CallBudget::Call &call) const;
    bool add(const QString &account, const QByteArray &text, Cause cause, CallBudget::Call &call);
    /// Whether there was an item to remove; none where that could not be found out or done.
    std::optional<bool> removeAll(const QString &account, Cause cause, CallBudget::Call &call);
    bool removeItem(const QDBusObjectPath &item, const QString &account, Cause cause, CallBudget::Call &call);
    std::optional<SecretMatches> find(const QString &account, CallBudget::Call &call);
    /// The same, unless one of the items is locked.
    std::optional<SecretMatches> findChangeable(const QString &account, CallBudget::Call &call);
    void noteRead(bool gotThrough, const CallBudget::Call &call);
    void noteWrite(bool gotThrough, const CallBudget::Call &call);
    void noteFailure(const CallBudget::Call &call);
    void tellWhy();
    void endStartUp();

    CallBudget m_budget;
    SecretServiceLink m_link;
    SecretPrompts m_prompts;
    SecretService m_service;
    SecretServiceWatch m_watch;
    KeyObstacle m_obstacle = KeyObstacle::None;
    bool m_doesPrompt = false; ///< whether the service asks the user about changes
    bool m_hasFailedWrite = false; ///< since the last one that went through
    std::map<QString, SecretBytes> m_prompted; ///< for which value it did
    /// The start-up loads each key and writes it back, all in one turn of the event loop: what it has read of
    /// an account with one item, until it is over or writes something else.
    std::map<QString, SecretBytes> m_justRead;
    bool m_isStartingUp = true;
};

} // namespace glimmet
