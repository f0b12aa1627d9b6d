#include "ui/controls/RoundedBox.h"

#include <QPainter>

namespace glimmet {

RoundedBox::RoundedBox(QQuickItem *parent)
    : QQuickPaintedItem(parent)
{
    setAntialiasing(true);
    setFlag(ItemHasContents, isSeen());
}

template <typename Value> void RoundedBox::repaintWith(Value &member, const Value &value)
{
    if (member == value)
        return;
    member = value;
    emit changed();
    // What is without contents cannot be told to change.
    setFlag(ItemHasContents);
    update();
    setFlag(ItemHasContents, isSeen());
}

bool RoundedBox::isSeen() const
{
    return m_color.alpha() > 0 || (m_borderWidth > 0 && m_borderColor.alpha() > 0);
}

void RoundedBox::setColor(const QColor &color)
{
    repaintWith(m_color, color);
}

void RoundedBox::setBorderColor(const QColor &color)
{
    repaintWith(m_borderColor, color);
}

void RoundedBox::setBorderWidth(qreal width)
{
    repaintWith(m_borderWidth, width);
}

void RoundedBox::setRadius(qreal radius)
{
    repaintWith(m_radius, radius);
}

void RoundedBox::setMargin(qreal margin)
{
    repaintWith(m_margin, margin);
}

void RoundedBox::paint(QPainter *painter)
{
    const QRectF bounds = boundingRect().marginsRemoved({ m_margin, m_margin, m_margin, m_margin });
    painter->setPen(Qt::NoPen);
    painter->setBrush(m_color);
    painter->drawRoundedRect(bounds, m_radius, m_radius);
    if (m_borderWidth <= 0)
        return;
    const qreal inset = m_borderWidth / 2;
    painter->setPen(QPen(m_borderColor, m_borderWidth));
    painter->setBrush(Qt::NoBrush);
    painter->drawRoundedRect(
        bounds.adjusted(inset, inset, -inset, -inset), m_radius - inset, m_radius - inset);
}

} // namespace glimmet
