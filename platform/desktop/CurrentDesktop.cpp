#include "platform/desktop/CurrentDesktop.h"

#include <QByteArray>
#include <QList>

namespace glimmet {

bool isDesktop(const char *name)
{
    return qgetenv("XDG_CURRENT_DESKTOP").toUpper().split(':').contains(name);
}

} // namespace glimmet
