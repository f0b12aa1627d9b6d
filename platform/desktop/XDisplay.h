#pragma once

#include <QByteArray>

#include <chrono>
#include <memory>

struct xcb_connection_t;

namespace glimmet {

/// What stands behind DISPLAY, before Qt asks: Qt ends the process with advice to reinstall where no server
/// answers, and waits without an end for one that takes the connection and then says nothing.
enum class XDisplay {
    Unset, ///< DISPLAY has no value
    Unreachable, ///< no server takes the connection, or the server refuses it
    Silent, ///< no answer came within the patience
    Answers,
};

struct XDisplayLook {
    XDisplay display = XDisplay::Unset;
    /// Of a display that answers. To be kept until the next one stands: a server may end with its last
    /// client.
    std::shared_ptr<xcb_connection_t> connection;
};

/// Connects to the display. Blocks until it knows, at most as long as `patience`. Where the display is
/// silent, a thread keeps waiting for it: the process is then to end.
XDisplayLook lookAtDisplay(std::chrono::milliseconds patience);

/// Whether Qt can do without an X server here: a Wayland compositor answers, and Qt's platform for it is
/// installed, which the program does not depend on.
enum class Substitute { None, NotInstalled, Wayland };
Substitute substituteForX();

/// Which of Qt's platforms the program takes on an X server where the user's QT_QPA_PLATFORM is `wanted`:
/// always "xcb", with the user's parameters for it if there are some. Other platforms are wished for in a
/// whole session's settings, and there a window cannot place itself.
QByteArray platformFor(const QByteArray &wanted);

} // namespace glimmet
