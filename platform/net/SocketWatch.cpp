#include "platform/net/SocketWatch.h"

#include <algorithm>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace glimmet {
namespace {

/// The port at this end; 0: it has none.
int portOf(curl_socket_t socket)
{
    sockaddr_storage address{};
    socklen_t size = sizeof address;
    if (getsockname(socket, reinterpret_cast<sockaddr *>(&address), &size) != 0)
        return 0;
    if (address.ss_family == AF_INET)
        return ntohs(reinterpret_cast<const sockaddr_in &>(address).sin_port);
    if (address.ss_family == AF_INET6)
        return ntohs(reinterpret_cast<const sockaddr_in6 &>(address).sin6_port);
    return 0;
}

bool isReadable(curl_socket_t socket)
{
    pollfd descriptor{ socket, POLLIN, 0 };
    return poll(&descriptor, 1, 0) > 0;
}

} // namespace

void SocketWatch::watch(CURL *handle)
{
    curl_easy_setopt(handle, CURLOPT_OPENSOCKETFUNCTION, open);
    curl_easy_setopt(handle, CURLOPT_OPENSOCKETDATA, this);
    curl_easy_setopt(handle, CURLOPT_CLOSESOCKETFUNCTION, close);
    curl_easy_setopt(handle, CURLOPT_CLOSESOCKETDATA, this);
}

bool SocketWatch::hasUnread(int localPort) const
{
    return localPort != 0 && std::any_of(m_open.begin(), m_open.end(), [localPort](curl_socket_t socket) {
        return portOf(socket) == localPort && isReadable(socket);
    });
}

curl_socket_t SocketWatch::open(void *watch, curlsocktype, curl_sockaddr *address)
{
    // No process that this one starts, or becomes, is to hold a connection.
    const curl_socket_t opened = socket(address->family, address->socktype | SOCK_CLOEXEC, address->protocol);
    if (opened != CURL_SOCKET_BAD)
        static_cast<SocketWatch *>(watch)->m_open.insert(opened);
    return opened;
}

int SocketWatch::close(void *watch, curl_socket_t socket)
{
    static_cast<SocketWatch *>(watch)->m_open.erase(socket);
    return ::close(socket);
}

} // namespace glimmet
