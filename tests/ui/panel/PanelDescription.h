#pragma once

#include <QColor>
#include <QList>
#include <QQuickWindow>
#include <QRectF>
#include <QString>
#include <QStringList>

namespace glimmet {

/// One thing that is drawn in a window, in words and numbers.
struct DrawnItem {
    QString what; ///< its type, after that of the component that it belongs to: "ModeCard.RoundedBox"
    QRectF area; ///< in the window
    QString text; ///< of a text; empty elsewhere
    QString style; ///< colours, and the size and weight of a font
    QColor pixel; ///< of a surface: what is on the screen at its left, off the glyphs; else invalid
    double measure = 0; ///< of a text: how wide its font sets it by itself, on one line

    /// The item on one line of a file, and back.
    QString toLine() const;
    static DrawnItem fromLine(const QString &line);
};

/// Everything that is drawn in `window`, in the order of painting. What is not visible is left out.
QList<DrawnItem> drawnItems(QQuickWindow &window);

/// A text as it can be read in a window.
struct ShownText {
    QString text;
    QColor color; ///< as it is seen, whatever its opacity is
    QColor ground; ///< most of what is around its glyphs
};

/// Every text of `window` that is visible and belongs to something in use.
QList<ShownText> shownTexts(QQuickWindow &window);

/// What is different, one line a difference: an item that moved or changed its size by more than a pixel,
/// took another text or style, or another colour on the screen. Where the font sets the texts beside an item
/// wider or narrower than it did (another version of it is installed), the item has so many whole pixels more
/// to its sides.
QStringList differences(const QList<DrawnItem> &expected, const QList<DrawnItem> &actual);

} // namespace glimmet
