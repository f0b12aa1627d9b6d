#pragma once

#include "platform/SingleShot.h"
#include "platform/keys/SecretServiceTypes.h"

#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QObject>
#include <QPointer>

#include <functional>

namespace glimmet {

class SecretServiceLink;
class SessionBus;

/// Finds out when the store can be read again after a call did not get through. It asks the service at every
/// change that it hears of, and once by itself after a pause, and never waits for the answer. Main thread.
class SecretServiceWatch : public QObject {
    Q_OBJECT

public:
    enum class Service { Answers, Hangs };

    /// `ours`: what the program's own items are found by. What else it is given outlives the watch.
    SecretServiceWatch(SecretServiceLink &link, const SessionBus &bus, Timers &timers, SecretAttributes ours,
        QObject *parent = nullptr);

    /// A call did not get through; where the service `Hangs`, it ran out of time.
    void noteFailure(Service state);
    /// A call will be of use once the service tells of a change: it is looked at then, and not before.
    void expectChange() { m_isLooking = true; }
    /// A call got through.
    void noteSuccess();
    /// Whether the service let a call run out of time and has not answered since.
    bool isHanging() const { return m_isHanging; }
    /// Asks now, where a call did not get through.
    void look();

signals:
    void readable();
    /// The service answers, but there is nothing that could be read.
    void closed();

private:
    void askForCollection();
    void askForLock(const QDBusObjectPath &collection);
    void askForItems();
    void ask(const QDBusMessage &question, std::function<void(const QVariantList &)> use);
    void report();

    SecretServiceLink &m_link;
    const SecretAttributes m_ours;
    bool m_isLooking = false;
    bool m_isHanging = false;
    SingleShot m_pause;
    QPointer<QObject> m_question;
};

} // namespace glimmet
