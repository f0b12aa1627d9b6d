#pragma once

#include <QColor>

namespace glimmet {

/// How well two opaque colours stand out from one another, from 1 (they are the same) to 21 (black on white):
/// the contrast ratio of the Web Content Accessibility Guidelines 2
/// (https://www.w3.org/TR/WCAG21/#dfn-contrast-ratio).
double contrast(const QColor &one, const QColor &other);

/// What they ask for at least, of texts (success criterion 1.4.3) and of the edges of controls (1.4.11).
constexpr double textContrast = 4.5;
constexpr double edgeContrast = 3;

/// `color`, see-through as it is, as it is seen on the opaque `ground`.
QColor laidOver(const QColor &color, const QColor &ground);

/// The same colour at another opacity, from 0 to 1.
QColor atOpacity(QColor color, double opacity);

/// The least opacity, not below `wished`, at which `color` on `ground` has a contrast of `ratio` to it; 1
/// where it has that at none.
double opacityReaching(double ratio, double wished, const QColor &color, const QColor &ground);

} // namespace glimmet
