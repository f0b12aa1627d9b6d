#include "app/ItemPicture.h"

#include <QFont>
#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>

#include <cmath>

namespace glimmet {
namespace {

/// The symbols are drawn on a grid of 16 by 16 by a line of this width.
constexpr double gridSize = 16;
constexpr double lineWidth = 1.5;
/// The edge's width at either side of a line, in the same units.
constexpr double edgeWidth = 0.9;

/// Of the picture's height.
constexpr double textHeight = 0.64;
constexpr double textMargin = 0.14;
/// Of its height, too: some sixty letters.
constexpr double mostWidth = 22;

struct Inks {
    QColor line;
    QColor edge;
};

Inks inksOn(ColorScheme bar)
{
    const QColor light(0xff, 0xff, 0xff);
    const QColor dark(0x1a, 0x16, 0x13);
    Inks inks = bar == ColorScheme::Dark ? Inks{ light, dark } : Inks{ dark, light };
    inks.edge.setAlphaF(0.55F);
    return inks;
}

void addLine(QPainterPath &path, std::initializer_list<QPointF> points)
{
    path.moveTo(*points.begin());
    for (const QPointF &point : points)
        path.lineTo(point);
}

QPainterPath bubble()
{
    QPainterPath outline;
    outline.addRoundedRect(QRectF(1.25, 2, 13.5, 9.5), 2.25, 2.25);
    QPainterPath tail;
    tail.addPolygon(QPolygonF({ { 4.5, 11 }, { 4.5, 14.5 }, { 7.75, 11.5 }, { 7.75, 11 }, { 4.5, 11 } }));
    QPainterPath path = outline.united(tail);
    addLine(path, { { 4.5, 5.25 }, { 11.5, 5.25 } });
    addLine(path, { { 4.5, 8.25 }, { 9, 8.25 } });
    return path;
}

QPainterPath pencil()
{
    QPainterPath path;
    addLine(path,
        { { 1.75, 14.25 }, { 2.6, 10.75 }, { 11.25, 2.1 }, { 12.5, 1.6 }, { 14.4, 3.5 }, { 13.9, 4.75 },
            { 5.25, 13.4 }, { 1.75, 14.25 } });
    addLine(path, { { 9.5, 3.85 }, { 12.15, 6.5 } });
    return path;
}

QPainterPath dollar()
{
    QPainterPath path;
    path.addEllipse(QPointF(8, 8), 6.75, 6.75);
    path.moveTo(10, 6.1);
    path.cubicTo(9.7, 5.45, 9, 5.1, 8, 5.1);
    path.cubicTo(6.8, 5.1, 6, 5.65, 6, 6.5);
    path.cubicTo(6, 8.5, 10.1, 7.5, 10.1, 9.55);
    path.cubicTo(10.1, 10.4, 9.2, 10.95, 8, 10.95);
    path.cubicTo(6.9, 10.95, 6.1, 10.55, 5.8, 9.8);
    addLine(path, { { 8, 3.9 }, { 8, 5.1 } });
    addLine(path, { { 8, 10.95 }, { 8, 12.1 } });
    return path;
}

QPainterPath symbolOf(TickerMode mode)
{
    QPainterPath path;
    switch (mode) {
    case TickerMode::Clock:
        path.addEllipse(QPointF(8, 8), 6.75, 6.75);
        addLine(path, { { 8, 4.25 }, { 8, 8.25 }, { 10.5, 9.75 } });
        break;
    case TickerMode::Quote:
        return bubble();
    case TickerMode::Custom:
        return pencil();
    case TickerMode::Revenue:
        return dollar();
    case TickerMode::Crypto:
        addLine(path, { { 1.5, 1.75 }, { 1.5, 14.25 }, { 14.5, 14.25 } });
        addLine(path, { { 4.5, 10.25 }, { 7.25, 7 }, { 9.5, 8.75 }, { 13.75, 3.5 } });
        addLine(path, { { 10.75, 3.25 }, { 14, 3.25 }, { 14, 6.5 } });
        break;
    case TickerMode::Deadline:
        path.arcMoveTo(QRectF(1.25, 1.25, 13.5, 13.5), 90);
        path.arcTo(QRectF(1.25, 1.25, 13.5, 13.5), 90, -315);
        addLine(path, { { 8, 1.25 }, { 8, 4 } });
        addLine(path, { { 5.1, 5.4 }, { 8, 8.25 } });
        break;
    }
    return path;
}

QImage emptyPicture(int width, int height)
{
    QImage image(width, height, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    return image;
}

QFont fontFor(int height)
{
    QFont font(QStringLiteral("Inter"));
    font.setPixelSize(int(std::lround(height * textHeight)));
    font.setWeight(QFont::Medium);
    return font;
}

/// The text with each digit as wide as the widest one: as wide as all that a clock shows.
double steadyAdvance(const QString &text, const QFontMetricsF &metrics)
{
    double widest = 0;
    double digits = 0;
    for (char16_t digit = u'0'; digit <= u'9'; ++digit)
        widest = std::max(widest, metrics.horizontalAdvance(QChar(digit)));
    QString others;
    for (const QChar letter : text) {
        if (letter >= u'0' && letter <= u'9')
            digits += widest;
        else
            others.append(letter);
    }
    return digits + metrics.horizontalAdvance(others);
}

QPen roundPen(const QColor &color, double width)
{
    return { color, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin };
}

} // namespace

QImage modePicture(TickerMode mode, int size, ColorScheme bar)
{
    QImage image = emptyPicture(size, size);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(size / gridSize, size / gridSize);
    // A line's edge is not cut off where it is at the grid's own.
    painter.translate(gridSize / 2, gridSize / 2);
    painter.scale(0.92, 0.92);
    painter.translate(-gridSize / 2, -gridSize / 2);
    const QPainterPath symbol = symbolOf(mode);
    const Inks inks = inksOn(bar);
    painter.strokePath(symbol, roundPen(inks.edge, lineWidth + 2 * edgeWidth));
    painter.strokePath(symbol, roundPen(inks.line, lineWidth));
    return image;
}

QImage textPicture(const QString &text, int height, ColorScheme bar)
{
    const QFont font = fontFor(height);
    const QFontMetricsF metrics(font);
    const QString shown = metrics.elidedText(text, Qt::ElideRight, mostWidth * height);
    const double margin = textMargin * height;
    // What stands beside it in the bar is not to move with each second. Kerning may make a text wider.
    const double advance = std::max(steadyAdvance(shown, metrics), metrics.horizontalAdvance(shown));
    const int width = int(std::ceil(advance + 2 * margin));
    QImage image = emptyPicture(std::max(width, height + 1), height);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::TextAntialiasing);
    painter.setFont(font);
    const Inks inks = inksOn(bar);
    const QRectF area = image.rect();
    const double step = edgeWidth * height / 22;
    QColor edge = inks.edge;
    edge.setAlphaF(edge.alphaF() / 3);
    painter.setPen(edge);
    for (const QPointF &offset : { QPointF(-step, 0), QPointF(step, 0), QPointF(0, -step), QPointF(0, step) })
        painter.drawText(area.translated(offset), Qt::AlignCenter | Qt::TextSingleLine, shown);
    painter.setPen(inks.line);
    painter.drawText(area, Qt::AlignCenter | Qt::TextSingleLine, shown);
    return image;
}

} // namespace glimmet
