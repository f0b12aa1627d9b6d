#include "ui/panel/Shades.h"

#include "ui/panel/Contrast.h"

namespace glimmet {

namespace {

/// No fill under quiet ink is stronger, also where one lies on another.
constexpr double strongestFill = 0.18;

} // namespace

Shades::Shades(const DesktopLook &look)
    : m_colors(panelColors(look.scheme))
    , m_isRaised(look.wantsContrast)
{
}

QColor Shades::text(double wished) const
{
    return atOpacity(m_colors.ink, raised(textContrast, wished, m_colors.ink));
}

QColor Shades::accentText(double wished) const
{
    return atOpacity(m_colors.accent, raised(textContrast, wished, m_colors.accent));
}

QColor Shades::edge(double wished) const
{
    return atOpacity(m_colors.ink, raised(edgeContrast, wished, m_colors.ink));
}

double Shades::control(double wished) const
{
    return raised(textContrast, wished, m_colors.ink);
}

double Shades::group(double wished) const
{
    return m_isRaised ? 1 : wished;
}

QColor Shades::ground(double opacity) const
{
    return laidOver(atOpacity(m_colors.ink, opacity), m_colors.background);
}

double Shades::raised(double ratio, double wished, const QColor &color) const
{
    return m_isRaised ? opacityReaching(ratio, wished, color, ground(strongestFill)) : wished;
}

} // namespace glimmet
