#pragma once

#include <QString>

namespace glimmet {

/// Lets screen readers say `text` when they are done with what they are saying, as news of the object that Qt
/// tells them of under the id `accessibleId` (`QAccessible::uniqueId`). Nothing happens while no assistive
/// program listens. It is the signal Announcement of the interface Event.Object of AT-SPI
/// (https://gitlab.gnome.org/GNOME/at-spi2-core), for which Qt 6.4 has no event of its own.
void announce(quint32 accessibleId, const QString &text);

} // namespace glimmet
