#pragma once

#include <QColor>
#include <QQuickPaintedItem>

namespace glimmet {

/// A filled rounded rectangle with a border painted over the fill, inside its edge. Unlike the toolkit's
/// rectangle it keeps widths such as 1.5 and lets a see-through border show the fill under it. While there is
/// nothing to be seen of it, it holds no picture.
class RoundedBox : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY changed)
    Q_PROPERTY(QColor borderColor READ borderColor WRITE setBorderColor NOTIFY changed)
    Q_PROPERTY(qreal borderWidth READ borderWidth WRITE setBorderWidth NOTIFY changed)
    Q_PROPERTY(qreal radius READ radius WRITE setRadius NOTIFY changed)
    /// Empty room around the rectangle, inside the item.
    Q_PROPERTY(qreal margin READ margin WRITE setMargin NOTIFY changed)

public:
    explicit RoundedBox(QQuickItem *parent = nullptr);

    QColor color() const { return m_color; }
    void setColor(const QColor &color);
    QColor borderColor() const { return m_borderColor; }
    void setBorderColor(const QColor &color);
    qreal borderWidth() const { return m_borderWidth; }
    void setBorderWidth(qreal width);
    qreal radius() const { return m_radius; }
    void setRadius(qreal radius);
    qreal margin() const { return m_margin; }
    void setMargin(qreal margin);

    void paint(QPainter *painter) override;

signals:
    void changed();

private:
    bool isSeen() const;
    template <typename Value> void repaintWith(Value &member, const Value &value);

    QColor m_color = Qt::transparent;
    QColor m_borderColor = Qt::transparent;
    qreal m_borderWidth = 0;
    qreal m_radius = 0;
    qreal m_margin = 0;
};

} // namespace glimmet
