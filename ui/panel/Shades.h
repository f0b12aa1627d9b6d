#pragma once

#include "platform/desktop/DesktopLook.h"
#include "ui/panel/PanelColors.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace glimmet {

/// The panel's colours at the opacities that its theme wishes for: exactly these, and stronger ones where the
/// desktop's user wants more contrast, so that everything can be read on each ground that it stands on.
class Shades {
    Q_GADGET
    QML_VALUE_TYPE(shades)

public:
    Shades() = default;
    explicit Shades(const DesktopLook &look);

    /// Ink for texts and symbols.
    Q_INVOKABLE QColor text(double wished) const;
    /// The highlight for texts.
    Q_INVOKABLE QColor accentText(double wished) const;
    /// Ink for lines, and for edges that tell a control from what is around it.
    Q_INVOKABLE QColor edge(double wished) const;
    /// How see-through a whole control that cannot be used now, or is being pressed, may be.
    Q_INVOKABLE double control(double wished) const;
    /// How see-through a whole that is there to be read may be: with texts of its own that are no stronger
    /// than they have to be, not at all.
    Q_INVOKABLE double group(double wished) const;
    /// The opaque colour that ink of this opacity makes of the ground.
    Q_INVOKABLE QColor ground(double opacity) const;

private:
    double raised(double ratio, double wished, const QColor &color) const;

    PanelColors m_colors = panelColors(ColorScheme::Light);
    bool m_isRaised = false;
};

} // namespace glimmet
