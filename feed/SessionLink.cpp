#include "feed/SessionLink.h"

#include "feed/BusCalls.h"
#include "platform/bus/SessionBusAddress.h"

namespace glimmet {
namespace {

constexpr std::chrono::seconds pauseBetweenAttempts{ 2 };

} // namespace

SessionLink::SessionLink(std::function<void(GDBusConnection *)> changed)
    : m_changed(std::move(changed))
{
    connect();
    m_retries.repeat(pauseBetweenAttempts, [this] { connect(); });
}

SessionLink::~SessionLink()
{
    if (m_attempt)
        g_cancellable_cancel(m_attempt.get());
    if (m_connection)
        g_signal_handler_disconnect(m_connection.get(), m_closedHandler);
}

void SessionLink::connect()
{
    const std::string address = sessionBusAddress();
    if (m_attempt || address.empty())
        return;
    const auto connected = [](GObject *, GAsyncResult *result, gpointer self) {
        GError *error = nullptr;
        GDBusConnection *connection = g_dbus_connection_new_for_address_finish(result, &error);
        const Owned<GError> failure(error);
        if (!error || !g_error_matches(error, G_IO_ERROR, G_IO_ERROR_CANCELLED))
            static_cast<SessionLink *>(self)->take(connection);
    };
    m_attempt.reset(g_cancellable_new());
    g_dbus_connection_new_for_address(
        address.c_str(), asBusClient, nullptr, m_attempt.get(), connected, this);
}

void SessionLink::take(GDBusConnection *connection)
{
    m_attempt.reset();
    if (!connection)
        return;
    m_retries.stop();
    m_connection.reset(connection);
    const auto closed = +[](GDBusConnection *, gboolean, GError *, gpointer self) {
        static_cast<SessionLink *>(self)->lose();
    };
    m_closedHandler = g_signal_connect(m_connection.get(), "closed", G_CALLBACK(closed), this);
    m_changed(m_connection.get());
}

void SessionLink::lose()
{
    m_changed(nullptr);
    g_signal_handler_disconnect(m_connection.get(), m_closedHandler);
    m_connection.reset();
    m_retries.repeat(pauseBetweenAttempts, [this] { connect(); });
}

} // namespace glimmet
