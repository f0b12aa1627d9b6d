#pragma once

#include "platform/ColorScheme.h"

#include <QColor>

namespace glimmet {

/// The three named colours of everything that the program draws: the ground ("Background"), the ink
/// ("AppSecondary", at various opacities) and the highlight ("Accent").
struct PanelColors {
    QColor background;
    QColor ink;
    QColor accent;
};

inline PanelColors panelColors(ColorScheme scheme)
{
    if (scheme == ColorScheme::Dark)
        return { QColor(0x1b, 0x1a, 0x1d), QColor(0xf4, 0xf1, 0xec), QColor(0xff, 0xb0, 0x54) };
    return { QColor(0xfb, 0xf9, 0xf5), QColor(0x1e, 0x1b, 0x18), QColor(0xb3, 0x48, 0x0c) };
}

} // namespace glimmet
