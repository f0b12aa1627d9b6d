#pragma once

#include <QDBusConnection>
#include <QStringList>

#include <memory>

struct DBusMessage;

namespace glimmet {

/// A signal with arguments of text that is sent again and again. Qt makes such a message anew each time and
/// wakes a thread of its own that writes it, which is most of what a changed text costs; this keeps all of it
/// that stays the same, and writes it at once by the library on which Qt stands
/// (https://dbus.freedesktop.org/doc/api/html/). Main thread.
class TextSignal {
public:
    /// ASCII texts of the form that D-Bus wants.
    TextSignal(const char *path, const char *interface, const char *member);

    /// Sends it, before what Qt was given a moment ago and has not written yet. False where that cannot be
    /// done without waiting for the bus: Qt has to send it, and a listener may then hear it twice.
    bool send(const QDBusConnection &connection, const QStringList &texts) const;

private:
    std::shared_ptr<DBusMessage> m_head; ///< without arguments; none where memory has run out
};

} // namespace glimmet
