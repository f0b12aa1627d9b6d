#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QString>

#include <functional>
#include <memory>

namespace glimmet {

class BusProbe;

/// A connection of the program's own to the system bus, made when it is needed and closed when it is not.
/// Main thread, which it never keeps waiting: while Qt connects to a bus, every other use of D-Bus stands
/// still, so that a bus has to show signs of life first.
class SystemBus final : public QObject {
    Q_OBJECT

public:
    using Ready = std::function<void(const QDBusConnection &)>;

    /// `address`: of the bus; empty: the system's own.
    explicit SystemBus(QString address = {}, QObject *parent = nullptr);
    ~SystemBus() override;

    /// Calls `ready` from the event loop, unless the bus is closed or opened anew before. Where there is no
    /// bus, the connection is not connected. With a bus that does not answer, it is never called.
    void open(const Ready &ready);
    void close();

private:
    void look();
    void connectNow();
    void finish();

    QString m_address;
    Ready m_ready;
    QDBusConnection m_connection{ QString() };
    std::unique_ptr<BusProbe> m_probe; ///< while the bus is asked for a sign of life
};

} // namespace glimmet
