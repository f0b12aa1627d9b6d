#include "platform/desktop/CurrentDesktop.h"

namespace glimmet {

QByteArrayList currentDesktops()
{
    return qgetenv("XDG_CURRENT_DESKTOP").toUpper().split(':');
}

} // namespace glimmet
