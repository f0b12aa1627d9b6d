#pragma once

#include <QByteArrayList>

namespace glimmet {

/// The names of the desktop and of those that it is made of, in capitals, as XDG_CURRENT_DESKTOP lists them
/// (https://specifications.freedesktop.org/desktop-entry-spec/latest/recognized-keys.html).
QByteArrayList currentDesktops();

} // namespace glimmet
