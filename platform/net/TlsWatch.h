#pragma once

#include <QtGlobal>

#include <curl/curl.h>
#include <set>

struct ssl_st;

namespace glimmet {

/// What OpenSSL knows of connections and curl does not tell. Outlives the connections that it watches; the
/// client's thread.
class TlsWatch {
public:
    /// What a connection is known by while it is there.
    using Connection = const void *;

    /// Watches the connection that `handle` may come to make.
    void watch(CURL *handle);
    /// Whether that connection came as far as agreeing on how to encrypt. Nothing is known of one that was
    /// kept.
    bool hasBegun(CURL *handle) const { return m_begun.contains(handle); }
    /// The one that `handle` uses right now; null: none yet.
    static Connection connectionOf(CURL *handle);
    /// How much the server ever sent over it, in bytes, encrypted.
    static qint64 received(Connection connection);
    /// Whether something that came over it is decrypted, or about to be, and not read yet.
    static bool hasUnread(Connection connection);
    /// Whether the server took leave (close_notify, RFC 8446, 6.1) before it hung up. A body whose length is
    /// not said is whole only then: anyone on the way can cut a connection.
    bool hasTakenLeave(Connection connection) const { return m_goodbyes.contains(connection); }

private:
    static void noteEvent(const ssl_st *connection, int event, int value);
    static CURLcode watchEvents(CURL *, void *context, void *watch);

    std::set<Connection> m_goodbyes;
    std::set<CURL *> m_begun;
};

} // namespace glimmet
