#pragma once

#include "ui/PanelModule.h"

#include <QColor>

namespace glimmet {

/// The three named colours of the panel. All others are these at an opacity.
struct Palette {
    QColor background; ///< the panel's ground
    QColor ink; ///< text, fills and strokes, mostly at a low opacity
    QColor accent; ///< what is live, on or focused
};

/// Both palettes are warm: paper, espresso and terracotta by day, embers on dark wood by night. Ink and
/// accent keep a contrast of at least 4.5 to 1 on the ground.
Palette palette(ColorScheme scheme);

} // namespace glimmet
