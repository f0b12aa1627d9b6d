#pragma once

#include "core/TickerMode.h"
#include "platform/desktop/ColorScheme.h"

#include <QImage>
#include <QString>

namespace glimmet {

/// What hosts show that know pictures only. Plain functions; a picture has the ink of a bar in that scheme
/// and around it a faint edge of the other one's, since a bar need not be as the desktop says.

/// The mode's symbol, as on its card, on `size` by `size` pixels.
QImage modePicture(TickerMode mode, int size, ColorScheme bar);

/// The text on one line, `height` pixels high and as wide as it needs; a long one ends in an ellipsis.
QImage textPicture(const QString &text, int height, ColorScheme bar);

} // namespace glimmet
