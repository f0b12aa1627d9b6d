#pragma once

#include "platform/keys/CallBudget.h"
#include "platform/keys/KeyStore.h"
#include "platform/keys/SecretService.h"
#include "platform/keys/SecretServiceLink.h"
#include "platform/keys/SecretServiceWatch.h"

#include <map>

namespace glimmet {

class SessionBus;

/// The key store in the desktop's Secret Service: an item an account, found by the attributes `service` and
/// `account` alone, so that items made by other tools are found too.
///
/// Until the event loop runs for the first time all calls share three seconds, later each call has 300 ms.
/// Once the service has let one run out of time, calls end at once until it answers again.
class KeychainHelper final : public KeyStore {
    Q_OBJECT

public:
    /// What it is given outlives the store; without a bus nothing is available.
    KeychainHelper(const SessionBus &bus, Timers &timers, const SteadyClock &clock,
        CallLimits limits = { std::chrono::seconds(3), std::chrono::milliseconds(300) },
        QObject *parent = nullptr);

private:
    /// An update is a removal and an addition. The addition is tried again on a fresh connection: after the
    /// removal it is the one copy of the value.
    bool write(const ApiKey &value, const QString &account) override;
    LoadedKey read(const QString &account) override;
    bool erase(const QString &account) override;
    LoadedKey read(const QString &account, const CallBudget::Call &call);
    bool replace(const QString &account, const QByteArray &text, const CallBudget::Call &call);
    bool add(const QString &account, const QByteArray &text, const CallBudget::Call &call);
    /// Whether there was an item to remove; none where that could not be found out or done.
    std::optional<bool> removeAll(const QString &account, const CallBudget::Call &call);
    bool removeItem(const QDBusObjectPath &item, const QString &account, const CallBudget::Call &call);
    std::optional<SecretMatches> find(const QString &account, const CallBudget::Call &call);
    /// The same, unless one of the items is locked.
    std::optional<SecretMatches> findChangeable(const QString &account, const CallBudget::Call &call);
    void note(bool gotThrough, const CallBudget::Call &call);

    CallBudget m_budget;
    SecretServiceLink m_link;
    SecretService m_service;
    SecretServiceWatch m_watch;
    std::map<QString, QByteArray> m_prompted; ///< for which value the service wanted to ask the user
};

} // namespace glimmet
