#pragma once

#include <QColor>
#include <QList>
#include <QQuickPaintedItem>

namespace glimmet {

/// Draws a series of prices over its whole width: a line, and under it an area that fades out towards the
/// bottom. A single price is a dot. It is painted anew only when something about it changes.
class PriceCurveImage : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    /// The prices, oldest first.
    Q_PROPERTY(QList<double> history READ history WRITE setHistory NOTIFY historyChanged)
    Q_PROPERTY(QColor lineColor READ lineColor WRITE setLineColor NOTIFY lineColorChanged)
    /// The area's colour at its top.
    Q_PROPERTY(QColor areaColor READ areaColor WRITE setAreaColor NOTIFY areaColorChanged)
    Q_PROPERTY(qreal lineWidth READ lineWidth WRITE setLineWidth NOTIFY lineWidthChanged)

public:
    explicit PriceCurveImage(QQuickItem *parent = nullptr);

    QList<double> history() const { return m_history; }
    void setHistory(const QList<double> &history);
    QColor lineColor() const { return m_lineColor; }
    void setLineColor(const QColor &color);
    QColor areaColor() const { return m_areaColor; }
    void setAreaColor(const QColor &color);
    qreal lineWidth() const { return m_lineWidth; }
    void setLineWidth(qreal width);

    void paint(QPainter *painter) override;

signals:
    void historyChanged();
    void lineColorChanged();
    void areaColorChanged();
    void lineWidthChanged();

private:
    using Signal = void (PriceCurveImage::*)();

    template <typename Value> void repaintWith(Value &member, const Value &value, Signal changed);
    void paintArea(QPainter &painter, const QList<QPointF> &points) const;
    void paintLine(QPainter &painter, const QList<QPointF> &points) const;

    QList<double> m_history;
    QColor m_lineColor = Qt::black;
    QColor m_areaColor = Qt::transparent;
    qreal m_lineWidth = 1;
};

} // namespace glimmet
