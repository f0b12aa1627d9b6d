#pragma once

#include "platform/desktop/BarColors.h"
#include "platform/desktop/ColorScheme.h"

#include <QImage>
#include <QRect>
#include <QSize>
#include <QString>
#include <QTextLayout>

#include <memory>
#include <optional>

namespace glimmet {

/// A text in the strip's font, laid out once for all that is asked of it.
class StripText {
public:
    explicit StripText(const QString &text = {});

    const QString &text() const { return m_text; }

    /// How large the strip is for it, in logical pixels: as wide as the text, up to `most`. One that is
    /// `current` pixels wide already becomes narrower only by a good deal, so that it stands still under a
    /// clock.
    QSize size(int current, int most) const;

    /// The whole of a strip of that size, with so many pixels for each logical one.
    QImage picture(QSize size, double scale, const BarColors &colors) const;

private:
    void paint(QPainter &painter, const QRectF &area) const;

    QString m_text;
    std::unique_ptr<QTextLayout> m_layout;
    double m_width = 0;
};

/// The smallest part, in pixels, in which pictures of one size differ; all of the second one where the sizes
/// do.
QRect changedPart(const QImage &before, const QImage &after);

/// What it is painted in where the desktop tells of no bar's colours.
BarColors stripColors(ColorScheme scheme);

/// How far from the end of an edge of `length` pixels a strip of that width ends that is wanted at `inset`:
/// it stays wholly on the edge.
int stripInset(int length, int width, int inset);

/// One press on the strip: a click, or a drag along the edge. Positions are along that edge and do not move
/// with the strip, in logical pixels.
class StripPress {
public:
    /// `inset`: the strip's then. Nothing where another button is down already.
    void begin(unsigned button, int position, int inset);
    /// The strip's inset from now on; none as long as it may still be a click.
    std::optional<int> moveTo(int position);
    /// True where it was a click of this button, which began it.
    bool end(unsigned button);
    /// It ends as nothing.
    void cancel() { m_isDown = false; }
    bool isDown() const { return m_isDown; }

private:
    bool m_isDown = false;
    bool m_isDrag = false;
    unsigned m_button = 0;
    int m_position = 0;
    int m_inset = 0;
};

} // namespace glimmet
