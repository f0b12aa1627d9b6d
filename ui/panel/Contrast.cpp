#include "ui/panel/Contrast.h"

#include <algorithm>
#include <cmath>

namespace glimmet {

namespace {

/// Opacities are painted in so many steps.
constexpr double opacityStep = 1.0 / 255;

double linear(double channel)
{
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double relativeLuminance(const QColor &color)
{
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

} // namespace

double contrast(const QColor &one, const QColor &other)
{
    const auto [darker, lighter] = std::minmax({ relativeLuminance(one), relativeLuminance(other) });
    return (lighter + 0.05) / (darker + 0.05);
}

QColor laidOver(const QColor &color, const QColor &ground)
{
    const double opacity = color.alphaF();
    const auto mixed = [opacity](double above, double below) {
        return static_cast<float>(opacity * above + (1 - opacity) * below);
    };
    return QColor::fromRgbF(mixed(color.redF(), ground.redF()), mixed(color.greenF(), ground.greenF()),
        mixed(color.blueF(), ground.blueF()));
}

QColor atOpacity(QColor color, double opacity)
{
    color.setAlphaF(static_cast<float>(opacity));
    return color;
}

double opacityReaching(double ratio, double wished, const QColor &color, const QColor &ground)
{
    double opacity = wished;
    while (opacity < 1 && contrast(laidOver(atOpacity(color, opacity), ground), ground) < ratio)
        opacity += opacityStep;
    return std::min(opacity, 1.0);
}

} // namespace glimmet
