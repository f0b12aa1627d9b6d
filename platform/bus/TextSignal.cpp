#include "platform/bus/TextSignal.h"

#include <dbus/dbus.h>

#include <poll.h>
#include <sys/ioctl.h>
#include <sys/socket.h>

#include <linux/sockios.h>

namespace glimmet {
namespace {

using Message = std::shared_ptr<DBusMessage>;

Message owned(DBusMessage *message)
{
    return { message, [](DBusMessage *mine) {
                if (mine != nullptr)
                    dbus_message_unref(mine);
            } };
}

/// A unit of UTF-16 is three bytes of UTF-8 at most.
qsizetype mostBytes(const QStringList &texts)
{
    qsizetype bytes = 0;
    for (const QString &text : texts)
        bytes += 3 * text.size();
    return bytes;
}

/// Whether so many bytes go out at once. What is left over would wait for Qt's thread, which does not hear of
/// it; and on a bus that is gone the library would end here what belongs to that thread.
bool isFree(DBusConnection *connection, qsizetype bytes)
{
    pollfd socket{ -1, POLLOUT, 0 };
    int waiting = 0;
    int room = 0;
    socklen_t length = sizeof(room);
    return !dbus_connection_has_messages_to_send(connection)
        && dbus_connection_get_unix_fd(connection, &socket.fd) && poll(&socket, 1, 0) == 1
        && socket.revents == POLLOUT && ioctl(socket.fd, SIOCOUTQ, &waiting) == 0
        && getsockopt(socket.fd, SOL_SOCKET, SO_SNDBUF, &room, &length) == 0 && waiting + bytes < room / 2;
}

bool append(DBusMessage *message, const QStringList &texts)
{
    DBusMessageIter end;
    dbus_message_iter_init_append(message, &end);
    for (const QString &text : texts) {
        const QByteArray utf8 = text.toUtf8();
        const char *const bytes = utf8.constData();
        if (!dbus_message_iter_append_basic(&end, DBUS_TYPE_STRING, static_cast<const void *>(&bytes)))
            return false;
    }
    return true;
}

} // namespace

TextSignal::TextSignal(const char *path, const char *interface, const char *member)
    : m_head(owned(dbus_message_new_signal(path, interface, member)))
{
}

bool TextSignal::send(const QDBusConnection &connection, const QStringList &texts) const
{
    auto *const native = static_cast<DBusConnection *>(connection.internalPointer());
    if (native == nullptr || !m_head || !isFree(native, mostBytes(texts)))
        return false;
    const Message message = owned(dbus_message_copy(m_head.get()));
    return message && append(message.get(), texts) && dbus_connection_send(native, message.get(), nullptr)
        && !dbus_connection_has_messages_to_send(native);
}

} // namespace glimmet
