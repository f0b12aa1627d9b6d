#pragma once

#include <QDBusConnection>
#include <QDBusVirtualObject>

namespace glimmet {

class SessionBus;

/// The one running program of this user's session: it owns the program's name on the bus and answers a second
/// launch, which asks it by org.freedesktop.Application
/// (https://specifications.freedesktop.org/desktop-entry-spec/latest/dbus.html) to show its panel. Main
/// thread.
class Instance final : public QDBusVirtualObject {
    Q_OBJECT

public:
    explicit Instance(SessionBus &bus, QObject *parent = nullptr);

    enum class Launch {
        First, ///< this program shall run
        HandedOver, ///< another one runs and opens its panel
        Refused, ///< another one runs and does not answer
    };
    /// Asks the program that has the name, if it is another one, to open its panel.
    Launch handOver();

    QString introspect(const QString &objectPath) const override;
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override;

signals:
    /// The program was launched again.
    void launchedAgain();

private:
    void claimName();

    SessionBus &m_bus;
};

} // namespace glimmet
