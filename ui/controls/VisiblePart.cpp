#include "ui/controls/VisiblePart.h"

namespace glimmet {

namespace {

constexpr const char *offset = "contentY";

bool scrolls(const QQuickItem &item)
{
    return item.inherits("QQuickFlickable");
}

QQuickItem *viewAround(const QQuickItem &item)
{
    QQuickItem *around = item.parentItem();
    while (around != nullptr && around->parentItem() != nullptr && !scrolls(*around))
        around = around->parentItem();
    return around;
}

} // namespace

void VisiblePart::enter(QQuickWindow *window)
{
    if (m_window)
        m_window->disconnect(this);
    m_window = window;
    // Whatever moves what is around makes a frame.
    if (m_window)
        connect(m_window, &QQuickWindow::afterAnimating, this, &VisiblePart::compare);
}

QRectF VisiblePart::area() const
{
    const QQuickItem *view = m_window ? viewAround(m_item) : nullptr;
    if (view == nullptr)
        return {};
    return view->mapRectToItem(&m_item, QRectF(QPointF(), view->size()));
}

void VisiblePart::scrollBy(qreal distance)
{
    QQuickItem *view = viewAround(m_item);
    if (view != nullptr && scrolls(*view))
        view->setProperty(offset, view->property(offset).toReal() + distance);
}

void VisiblePart::compare()
{
    follow(viewAround(m_item));
    const QRectF now = area();
    if (now == m_known)
        return;
    m_known = now;
    emit moved();
}

void VisiblePart::follow(QQuickItem *view)
{
    if (m_view == view)
        return;
    if (m_view)
        m_view->disconnect(this);
    m_view = view;
    if (m_view == nullptr)
        return;
    connect(m_view, &QQuickItem::heightChanged, this, &VisiblePart::compare);
    // Told before the frame that shows it, so that this one is whole.
    if (scrolls(*m_view))
        connect(m_view, SIGNAL(contentYChanged()), this, SLOT(compare()));
}

} // namespace glimmet
