#include "ui/editors/PriceCurveImage.h"

#include "ui/editors/PriceCurve.h"

#include <QLinearGradient>
#include <QPainter>

namespace glimmet {

namespace {

constexpr qreal dotRadius = 2.5;

} // namespace

PriceCurveImage::PriceCurveImage(QQuickItem *parent)
    : QQuickPaintedItem(parent)
{
    setAntialiasing(true);
}

template <typename Value> void PriceCurveImage::repaintWith(Value &member, const Value &value, Signal changed)
{
    if (member == value)
        return;
    member = value;
    update();
    emit(this->*changed)();
}

void PriceCurveImage::setHistory(const QList<double> &history)
{
    repaintWith(m_history, history, &PriceCurveImage::historyChanged);
}

void PriceCurveImage::setLineColor(const QColor &color)
{
    repaintWith(m_lineColor, color, &PriceCurveImage::lineColorChanged);
}

void PriceCurveImage::setAreaColor(const QColor &color)
{
    repaintWith(m_areaColor, color, &PriceCurveImage::areaColorChanged);
}

void PriceCurveImage::setLineWidth(qreal width)
{
    repaintWith(m_lineWidth, width, &PriceCurveImage::lineWidthChanged);
}

void PriceCurveImage::paint(QPainter *painter)
{
    const QList<QPointF> points = PriceCurve::thinned(PriceCurve::points(m_history, size()));
    paintArea(*painter, points);
    paintLine(*painter, points);
}

void PriceCurveImage::paintArea(QPainter &painter, const QList<QPointF> &points) const
{
    QColor clear = m_areaColor;
    clear.setAlpha(0);
    QLinearGradient fading(0, 0, 0, height());
    fading.setColorAt(0, m_areaColor);
    fading.setColorAt(1, clear);
    painter.fillPath(PriceCurve::area(points, height()), fading);
}

void PriceCurveImage::paintLine(QPainter &painter, const QList<QPointF> &points) const
{
    if (points.size() == 1) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(m_lineColor);
        painter.drawEllipse(points.first(), dotRadius, dotRadius);
        return;
    }
    painter.strokePath(
        PriceCurve::line(points), QPen(m_lineColor, m_lineWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
}

} // namespace glimmet
