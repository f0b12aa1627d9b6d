#include "ui/controls/FlowLayout.h"

#include <QQuickWindow>

#include <optional>

namespace glimmet {

FlowLayout::FlowLayout(QQuickItem *parent)
    : QQuickItem(parent)
{
    m_animation.setStartValue(0.0);
    m_animation.setEndValue(1.0);
    m_animation.setDuration(0);
    m_animation.setEasingCurve(QEasingCurve::InOutQuad);
    connect(&m_animation, &QVariantAnimation::valueChanged, this,
        [this](const QVariant &progress) { moveItems(progress.toReal()); });
    watchFrames(window()); // The base class has taken the parent before this one could hear of it.
}

void FlowLayout::setSpacing(qreal spacing)
{
    if (m_engine.spacing == spacing)
        return;
    m_engine.spacing = spacing;
    polish();
    emit spacingChanged();
}

void FlowLayout::setDuration(int milliseconds)
{
    if (duration() == milliseconds)
        return;
    m_animation.setDuration(milliseconds);
    emit durationChanged();
}

void FlowLayout::itemChange(ItemChange change, const ItemChangeData &data)
{
    if (change == ItemChildAddedChange) {
        watchChild(*data.item);
    } else if (change == ItemChildRemovedChange) {
        m_glides.remove(data.item);
        data.item->disconnect(this);
        polish();
    } else if (change == ItemSceneChange) {
        watchFrames(data.window);
    }
    QQuickItem::itemChange(change, data);
}

void FlowLayout::watchChild(QQuickItem &child)
{
    connect(&child, &QQuickItem::widthChanged, this, &QQuickItem::polish);
    connect(&child, &QQuickItem::heightChanged, this, &QQuickItem::polish);
    connect(&child, &QQuickItem::visibleChanged, this, &QQuickItem::polish);
    polish();
}

// A child that moves among its siblings does not tell its parent, but it makes a frame.
void FlowLayout::watchFrames(QQuickWindow *window)
{
    disconnect(m_frames);
    if (window == nullptr)
        return;
    m_frames = connect(window, &QQuickWindow::afterAnimating, this, [this] {
        if (m_isLaidOut && childItems() != m_order)
            layOut();
    });
    polish();
}

void FlowLayout::geometryChange(const QRectF &geometry, const QRectF &before)
{
    QQuickItem::geometryChange(geometry, before);
    if (geometry.width() != before.width())
        polish();
}

void FlowLayout::updatePolish()
{
    layOut();
    if (m_isLaidOut)
        return;
    m_isLaidOut = true;
    emit isLaidOutChanged();
}

QList<FlowLayout::Occupant> FlowLayout::occupants() const
{
    QList<Occupant> occupants;
    for (QQuickItem *item : childItems()) {
        if (item->isVisible() && !item->size().isEmpty())
            occupants.append({ item, item->size() });
    }
    return occupants;
}

void FlowLayout::layOut()
{
    const std::optional<qreal> proposedWidth = widthValid() ? std::optional(width()) : std::nullopt;
    const QList<Occupant> placed = occupants();
    QList<QSizeF> sizes;
    for (const Occupant &occupant : placed)
        sizes.append(occupant.size);
    const QList<QPointF> corners = m_engine.placeSubviews(QRectF(), proposedWidth, sizes);
    m_places.clear();
    for (qsizetype i = 0; i < sizes.size(); ++i)
        m_places.append(QRectF(corners.at(i), sizes.at(i)));
    m_order = childItems();
    place(placed);
    m_laidOutWidth = width();
    setImplicitHeight(m_engine.sizeThatFits(proposedWidth, sizes).height());
}

bool FlowLayout::glides(QQuickItem *item) const
{
    return m_isLaidOut && duration() > 0 && m_laidOutWidth == width() && m_glides.contains(item);
}

void FlowLayout::place(const QList<Occupant> &occupants)
{
    QHash<QQuickItem *, Glide> next;
    bool isMoving = false;
    for (qsizetype i = 0; i < occupants.size(); ++i) {
        QQuickItem *item = occupants.at(i).item;
        if (item == nullptr)
            continue;
        const QPointF corner = m_places.at(i).topLeft();
        if (!glides(item))
            item->setPosition(corner);
        isMoving = isMoving || item->position() != corner;
        next.insert(item, { item->position(), corner });
    }
    m_glides = next;
    m_animation.stop();
    if (isMoving)
        m_animation.start();
}

void FlowLayout::moveItems(qreal progress)
{
    for (auto [item, glide] : m_glides.asKeyValueRange())
        item->setPosition(glide.from + progress * (glide.to - glide.from));
}

} // namespace glimmet
