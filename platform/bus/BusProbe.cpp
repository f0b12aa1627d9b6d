#include "platform/bus/BusProbe.h"

#include <QFile>

#include <cerrno>
#include <cstring>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace glimmet {
namespace {

/// How every client begins (https://dbus.freedesktop.org/doc/dbus-specification.html#auth-protocol).
QByteArray greeting()
{
    return QByteArray(1, '\0') + "AUTH EXTERNAL " + QByteArray::number(getuid()).toHex() + "\r\n";
}

} // namespace

BusProbe::BusProbe(const QString &path)
    : m_socket(socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0))
{
    if (!greet(QFile::encodeName(path))) {
        QMetaObject::invokeMethod(this, [this] { emit over(false); }, Qt::QueuedConnection);
        return;
    }
    m_answer = std::make_unique<QSocketNotifier>(m_socket, QSocketNotifier::Read);
    connect(m_answer.get(), &QSocketNotifier::activated, this, &BusProbe::conclude);
}

BusProbe::~BusProbe()
{
    m_answer.reset(); // before its socket
    if (m_socket >= 0)
        ::close(m_socket);
}

bool BusProbe::greet(const QByteArray &path) const
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (m_socket < 0 || size_t(path.size()) >= sizeof(address.sun_path))
        return false;
    std::memcpy(address.sun_path, path.constData(), size_t(path.size()));
    const QByteArray bytes = greeting();
    return ::connect(m_socket, reinterpret_cast<const sockaddr *>(&address), sizeof(address)) == 0
        && send(m_socket, bytes.constData(), size_t(bytes.size()), MSG_NOSIGNAL) == bytes.size();
}

void BusProbe::conclude()
{
    char first = 0;
    const ssize_t count = recv(m_socket, &first, 1, MSG_PEEK);
    if (count < 0 && (errno == EAGAIN || errno == EINTR))
        return;
    m_answer->setEnabled(false);
    emit over(count == 1);
}

} // namespace glimmet
