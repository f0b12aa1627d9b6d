#pragma once

#include "ui/controls/FlowLayoutEngine.h"

#include <QHash>
#include <QQuickItem>
#include <QVariantAnimation>
#include <QtQml/qqmlregistration.h>

namespace glimmet {

/// Lays out its visible children like words in a paragraph as wide as itself, each at its own size and in the
/// order of the children; what has no size takes no room. It is as high as its rows.
///
/// It lays out once before a frame, however much has changed. A child that was placed before glides to the
/// new place; the first layout, newcomers and a new width are placed at once.
class FlowLayout : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(qreal spacing READ spacing WRITE setSpacing NOTIFY spacingChanged)
    /// Milliseconds of the glide; 0 for none.
    Q_PROPERTY(int duration READ duration WRITE setDuration NOTIFY durationChanged)
    /// Whether the first layout is done.
    Q_PROPERTY(bool isLaidOut READ isLaidOut NOTIFY isLaidOutChanged)

public:
    explicit FlowLayout(QQuickItem *parent = nullptr);

    qreal spacing() const { return m_engine.spacing; }
    void setSpacing(qreal spacing);
    int duration() const { return m_animation.duration(); }
    void setDuration(int milliseconds);
    bool isLaidOut() const { return m_isLaidOut; }

signals:
    void spacingChanged();
    void durationChanged();
    void isLaidOutChanged();

protected:
    /// What has a place: an item, or only the room for one.
    struct Occupant {
        QQuickItem *item = nullptr;
        QSizeF size;
    };
    /// In order; by default the visible children that have a size.
    virtual QList<Occupant> occupants() const;
    void layOut();
    /// Of the occupants as of the last layout.
    const QList<QRectF> &places() const { return m_places; }

    void itemChange(ItemChange change, const ItemChangeData &data) override;
    void geometryChange(const QRectF &geometry, const QRectF &before) override;
    void updatePolish() override;

private:
    struct Glide {
        QPointF from;
        QPointF to;
    };

    void watchChild(QQuickItem &child);
    void watchFrames(QQuickWindow *window);
    bool glides(QQuickItem *item) const;
    void place(const QList<Occupant> &occupants);
    void moveItems(qreal progress);

    FlowLayoutEngine m_engine;
    QList<QQuickItem *> m_order; ///< all children as of the last layout
    QList<QRectF> m_places;
    QHash<QQuickItem *, Glide> m_glides; ///< the children that have a place
    QVariantAnimation m_animation;
    QMetaObject::Connection m_frames;
    qreal m_laidOutWidth = 0;
    bool m_isLaidOut = false;
};

} // namespace glimmet
