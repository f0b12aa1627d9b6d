#pragma once

#include "platform/desktop/I3Ipc.h"

#include <QObject>
#include <QSocketNotifier>

#include <memory>

namespace glimmet {

/// A connection to i3 or sway. Nothing waits: what is answered comes a moment later, or never. Main thread.
class I3Connection final : public QObject {
    Q_OBJECT

public:
    /// `path`: of the socket; nobody is spoken to where it is empty, or where nobody listens.
    explicit I3Connection(const QByteArray &path, QObject *parent = nullptr);
    ~I3Connection() override;

    void send(I3Ipc::Type type, const QByteArray &payload) const;
    /// Nothing is received any more.
    void end();

signals:
    /// An answer, in the order of what was sent, or an event.
    void received(const QByteArray &payload);

private:
    void read();

    int m_socket;
    QByteArray m_buffer;
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace glimmet
