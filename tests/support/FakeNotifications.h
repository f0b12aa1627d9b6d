#pragma once

#include "tests/support/PrivateBus.h"

#include <QDBusVirtualObject>
#include <QList>
#include <QStringList>
#include <QVariantMap>

namespace glimmet {

/// A desktop that shows notifications, as far as the test's program knows.
class FakeNotifications final : public QDBusVirtualObject {
public:
    struct Notification {
        QString program;
        QString icon;
        QString summary;
        QString body;
        QStringList actions;
        QVariantMap hints;
    };

    explicit FakeNotifications(const PrivateBus &bus);
    ~FakeNotifications() override;
    Q_DISABLE_COPY_MOVE(FakeNotifications)

    QList<Notification> shown; ///< all of its life; their numbers begin with 7
    QList<uint> closed;
    bool isSlow = false; ///< shows, but does not say so before `answer`

    /// Leaves the bus and comes back: its numbers begin anew, and nothing is shown.
    void restart();
    QDBusConnection connection() const { return QDBusConnection(m_connectionName); }
    /// Answers what has waited for it.
    void answer();
    /// The user chooses an action of a notification.
    static void choose(QDBusConnection connection, uint id, const QString &action);
    void choose(uint id, const QString &action) const;

    QString introspect(const QString &path) const override;
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override;

private:
    const PrivateBus &m_bus;
    QString m_connectionName;
    int m_lives = 0;
    QList<QDBusMessage> m_waiting;
};

} // namespace glimmet
