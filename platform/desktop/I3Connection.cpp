#include "platform/desktop/I3Connection.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <utility>

namespace glimmet {
namespace {

/// -1 where nobody listens there.
int connectTo(const QByteArray &path)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.isEmpty() || path.size() >= qsizetype(sizeof(address.sun_path)))
        return -1;
    std::copy(path.begin(), path.end(), static_cast<char *>(address.sun_path));
    const int socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
    if (socket >= 0 && connect(socket, reinterpret_cast<const sockaddr *>(&address), sizeof(address)) == 0)
        return socket;
    if (socket >= 0)
        close(socket);
    return -1;
}

} // namespace

I3Connection::I3Connection(const QByteArray &path, QObject *parent)
    : QObject(parent)
    , m_socket(connectTo(path))
{
    if (m_socket < 0)
        return;
    m_notifier = std::make_unique<QSocketNotifier>(m_socket, QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, &I3Connection::read);
}

I3Connection::~I3Connection()
{
    end();
}

void I3Connection::send(I3Ipc::Type type, const QByteArray &payload) const
{
    if (m_socket < 0)
        return;
    // The few bytes fit, or the other side is in no state to answer.
    const QByteArray message = I3Ipc::message(type, payload);
    ::send(m_socket, message.constData(), static_cast<size_t>(message.size()), MSG_NOSIGNAL);
}

void I3Connection::end()
{
    if (m_socket < 0)
        return;
    m_notifier->setEnabled(false);
    m_notifier.release()->deleteLater(); // It may be what has called.
    close(std::exchange(m_socket, -1));
    m_buffer.clear();
}

void I3Connection::read()
{
    std::array<char, 4096> part{};
    const ssize_t size = recv(m_socket, part.data(), part.size(), 0);
    if (size <= 0) {
        end();
        return;
    }
    m_buffer.append(part.data(), size);
    while (const std::optional<QByteArray> payload = I3Ipc::takePayload(m_buffer))
        emit received(*payload);
}

} // namespace glimmet
