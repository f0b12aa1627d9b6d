#include "platform/desktop/BarColorsWatch.h"

#include "platform/desktop/X11.h"

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

QByteArray BarColorsWatch::defaultPath()
{
    return X11::isI3() ? X11::rootText("I3_SOCKET_PATH") : qgetenv("SWAYSOCK");
}

BarColorsWatch::BarColorsWatch(const QByteArray &path, QObject *parent)
    : QObject(parent)
    , m_socket(connectTo(path))
{
    if (m_socket < 0)
        return;
    m_notifier = std::make_unique<QSocketNotifier>(m_socket, QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, &BarColorsWatch::readAnswers);
    send({});
}

BarColorsWatch::~BarColorsWatch()
{
    end();
}

void BarColorsWatch::readAnswers()
{
    std::array<char, 4096> part{};
    const ssize_t size = recv(m_socket, part.data(), part.size(), 0);
    if (size <= 0) {
        end();
        return;
    }
    m_buffer.append(part.data(), size);
    while (const std::optional<QByteArray> payload = I3Ipc::takePayload(m_buffer))
        handle(*payload);
}

void BarColorsWatch::handle(const QByteArray &payload)
{
    if (!std::exchange(m_knowsBar, true)) {
        const QString bar = I3Ipc::firstBar(payload);
        bar.isEmpty() ? end() : send(bar.toUtf8());
        return;
    }
    end();
    if (const std::optional<BarColors> colors = I3Ipc::barColors(payload))
        emit found(*colors);
}

void BarColorsWatch::send(const QByteArray &payload)
{
    // The few bytes fit, or the other side is in no state to answer.
    const QByteArray message = I3Ipc::message(I3Ipc::Type::GetBarConfig, payload);
    ::send(m_socket, message.constData(), static_cast<size_t>(message.size()), MSG_NOSIGNAL);
}

void BarColorsWatch::end()
{
    if (m_socket < 0)
        return;
    m_notifier->setEnabled(false);
    m_notifier.release()->deleteLater(); // It may be what has called.
    close(std::exchange(m_socket, -1));
}

} // namespace glimmet
