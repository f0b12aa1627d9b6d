#pragma once

#include "platform/keys/SecretServiceTypes.h"
#include "tests/support/PrivateBus.h"

#include <QDBusVirtualObject>
#include <QHash>
#include <QMutex>
#include <QStringList>
#include <QThread>

#include <chrono>
#include <optional>

namespace glimmet {

/// A Secret Service of the test's own that fails as the test wishes. It works on a thread of its own, so that
/// the program may wait for it, and has the protocol's calls that the program may need, and no others.
class FakeSecretService final : public QDBusVirtualObject {
public:
    enum class Fault {
        Refuses, ///< answers with an error
        Hangs, ///< does the work, but never answers
        Dies, ///< leaves the bus; another life takes over where there is one
        Babbles, ///< answers with something else
        Prompts, ///< does the work only after its prompt was started
    };

    /// Comes with several lives, which all know the same items.
    explicit FakeSecretService(const PrivateBus &bus, int lives = 1);
    ~FakeSecretService() override;
    Q_DISABLE_COPY_MOVE(FakeSecretService)

    /// The next call of `method` fails.
    void failAt(const QString &method, Fault fault);
    /// The call after `count` others fails.
    void failAfter(int count, Fault fault);
    /// The collection is locked until `Unlock` is called, which then needs no prompt.
    void lock();
    /// The collection is open, but the items are in one that is not.
    void lockItems();
    /// The same from the next call of `method` on, before it is answered.
    void lockItemsBefore(const QString &method);
    /// Every answer takes this long.
    void setDelay(std::chrono::milliseconds delay);

    /// Every call so far: the method, and the unique name of who called.
    QStringList calls() const;
    QStringList callersOf(const QString &method) const;
    /// What the last prompt was told of the window that it belongs to.
    QString promptWindow() const;
    /// The values of the items by their accounts.
    QHash<QString, QByteArray> items() const;
    void put(const QString &account, const QByteArray &value);

    QString introspect(const QString &path) const override;
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override;

private:
    struct Recorded {
        QString method;
        QString caller;
    };

    std::optional<Fault> takeFault(const QString &method);
    void fail(Fault fault, const QDBusMessage &message, const QDBusConnection &connection);
    QVariantList answer(const QDBusMessage &message);
    bool isLocked(const QString &interface) const;
    QVariantList search(const SecretAttributes &attributes) const;
    QVariantList create(const QVariantMap &properties, const SecretOfItem &secret);

    mutable QMutex m_mutex;
    QStringList m_connections;
    QList<Recorded> m_calls;
    QString m_failingMethod;
    int m_callsBeforeFault = -1;
    Fault m_fault = Fault::Refuses;
    std::optional<QDBusMessage> m_prompted;
    QString m_promptWindow;
    bool m_isLocked = false;
    bool m_hasLockedItems = false;
    QString m_lockingMethod;
    std::chrono::milliseconds m_delay{ 0 };
    QHash<QString, QByteArray> m_items;
    QThread m_thread;
};

} // namespace glimmet
