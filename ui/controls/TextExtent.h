#pragma once

#include <QFont>
#include <QSizeF>
#include <QString>

#include <optional>

namespace glimmet {

/// How much room a plain text takes, in logical pixels, as the toolkit's text item lays it out by itself: on
/// the lines that it has, or broken where `wrapWidth` ends.
QSizeF textExtent(const QString &text, const QFont &font, std::optional<qreal> wrapWidth);

} // namespace glimmet
