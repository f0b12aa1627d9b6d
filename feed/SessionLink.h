#pragma once

#include "feed/Glib.h"

#include <functional>

namespace glimmet {

/// The feed's connection to the session bus, which it makes again when the bus is lost. A bus is never
/// launched.
class SessionLink {
public:
    /// Calls `changed` from the main loop with each new connection, and with null when that is lost.
    explicit SessionLink(std::function<void(GDBusConnection *)> changed);
    ~SessionLink();
    SessionLink(const SessionLink &) = delete;
    SessionLink &operator=(const SessionLink &) = delete;

private:
    void connect();
    void take(GDBusConnection *connection);
    void lose();

    std::function<void(GDBusConnection *)> m_changed;
    Owned<GCancellable> m_attempt;
    Owned<GDBusConnection> m_connection;
    gulong m_closedHandler = 0;
    EventSource m_retries;
};

} // namespace glimmet
