#pragma once

#include <QObject>
#include <QSocketNotifier>

#include <memory>

namespace glimmet {

/// Asks the bus behind a socket's file for a sign of life, without waiting for it. Main thread.
class BusProbe final : public QObject {
    Q_OBJECT

public:
    explicit BusProbe(const QString &path);
    ~BusProbe() override;

signals:
    /// Once, from the event loop; never while the bus stays silent.
    void over(bool isAlive);

private:
    bool greet(const QByteArray &path) const;
    void conclude();

    int m_socket;
    std::unique_ptr<QSocketNotifier> m_answer;
};

} // namespace glimmet
