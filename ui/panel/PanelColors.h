#pragma once

#include "platform/desktop/ColorScheme.h"

#include <QColor>

namespace glimmet {

/// The three named colours of everything that the program draws: the ground ("Background"), the ink
/// ("AppSecondary", at various opacities) and the highlight ("Accent"). Both sets are warm: paper, espresso
/// and terracotta by day, embers on dark wood by night. Ink and highlight have a contrast of at least 4.5 to
/// 1 on the ground, and the highlight on its own tints too.
struct PanelColors {
    QColor background;
    QColor ink;
    QColor accent;
};

inline PanelColors panelColors(ColorScheme scheme)
{
    if (scheme == ColorScheme::Dark)
        return { QColor(0x1f, 0x1a, 0x17), QColor(0xf5, 0xec, 0xe1), QColor(0xf2, 0x96, 0x5a) };
    return { QColor(0xfb, 0xf7, 0xf1), QColor(0x2e, 0x28, 0x20), QColor(0x93, 0x38, 0x16) };
}

} // namespace glimmet
