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

    QList<Notification> shown; ///< all there ever were; their numbers begin with 7
    QList<uint> closed;

    /// The user chooses an action of a notification.
    static void choose(QDBusConnection connection, uint id, const QString &action);
    void choose(uint id, const QString &action) const;

    QString introspect(const QString &path) const override;
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override;
};

} // namespace glimmet
