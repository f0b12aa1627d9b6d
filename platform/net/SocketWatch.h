#pragma once

#include <curl/curl.h>
#include <set>

namespace glimmet {

/// The sockets that curl has open, which it does not tell of while one is used again. Outlives them; the
/// client's thread.
class SocketWatch {
public:
    /// Watches what `handle` may come to open.
    void watch(CURL *handle);
    /// Whether something can be read from the socket with that port at this end; what the encryption holds is
    /// not among it.
    bool hasUnread(int localPort) const;

private:
    static curl_socket_t open(void *watch, curlsocktype purpose, curl_sockaddr *address);
    static int close(void *watch, curl_socket_t socket);

    std::set<curl_socket_t> m_open;
};

} // namespace glimmet
