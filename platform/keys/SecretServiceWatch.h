#pragma once

#include "platform/SingleShot.h"

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

    /// What it is given outlives the watch.
    SecretServiceWatch(
        SecretServiceLink &link, const SessionBus &bus, Timers &timers, QObject *parent = nullptr);

    /// A call did not get through; where the service `Hangs`, it ran out of time.
    void noteFailure(Service state);
    /// A call got through.
    void noteSuccess();
    /// Whether the service let a call run out of time and has not answered since.
    bool isHanging() const { return m_isHanging; }

signals:
    void readable();

private:
    void look();
    void askForCollection();
    void askForLock(const QDBusObjectPath &collection);
    void ask(const QDBusMessage &question, std::function<void(const QVariant &)> use);
    void report();

    SecretServiceLink &m_link;
    bool m_isLooking = false;
    bool m_isHanging = false;
    SingleShot m_pause;
    QPointer<QObject> m_question;
};

} // namespace glimmet
