#include "app/StripLayer.h"

#include "platform/wayland/LayerSurface.h"
#include "platform/wayland/WaylandConnection.h"

namespace glimmet {

using namespace std::chrono_literals;

StripLayer::StripLayer(WaylandConnection &connection, Timers &timers, int inset)
    : m_connection(connection)
    , m_inset(inset)
    , m_search(timers, 200ms, [this] { endSearch(); })
{
    connect(&connection, &WaylandConnection::changed, this, &StripLayer::makeSurface, Qt::QueuedConnection);
    connect(
        &connection, &WaylandConnection::pointerGone, this, &StripLayer::makeSurface, Qt::QueuedConnection);
}

StripLayer::~StripLayer() = default;

void StripLayer::setText(const QString &text)
{
    if (text == m_text.text())
        return;
    m_text = StripText(text);
    if (m_surface)
        fit();
    else
        makeSurface();
    draw();
}

void StripLayer::setColors(const BarColors &colors)
{
    m_colors = colors;
    draw();
}

std::optional<QPoint> StripLayer::anchor() const
{
    if (!m_connection.hasLayers())
        return std::nullopt;
    const QRect output = m_connection.outputs().front()->geometry;
    const int inset = stripInset(length(), m_size.width(), m_inset);
    return output.topLeft()
        + QPoint(length() - inset - m_size.width() / 2, m_lowerEdge.value_or(m_size.height()));
}

void StripLayer::makeSurface()
{
    m_press.cancel();
    m_search.stop();
    m_isClicked = false;
    m_lowerEdge.reset();
    m_surface.reset();
    m_dragged.reset();
    m_cover.reset();
    m_size = { 0, 0 };
    if (!m_connection.hasLayers() || m_text.text().isEmpty())
        return;
    const LayerPlace where = place();
    m_surface = std::make_unique<LayerSurface>(m_connection, m_connection.outputs().front(), where);
    connect(m_surface.get(), &LayerSurface::configured, this, &StripLayer::draw);
    connect(m_surface.get(), &LayerSurface::pressed, this, &StripLayer::handlePress);
    connect(m_surface.get(), &LayerSurface::pointerMoved, this, &StripLayer::handleMove);
    connect(m_surface.get(), &LayerSurface::released, this, &StripLayer::handleRelease);
    connect(m_surface.get(), &LayerSurface::left, this, &StripLayer::handleLeaving);
    connect(m_surface.get(), &LayerSurface::closed, this, &StripLayer::makeSurface, Qt::QueuedConnection);
}

LayerPlace StripLayer::place()
{
    m_size = m_text.size(m_size.width(), length());
    LayerPlace place;
    place.edges = LayerShellProtocol::TopEdge | LayerShellProtocol::RightEdge;
    place.size = m_size;
    place.marginRight = stripInset(length(), m_size.width(), m_inset);
    return place;
}

void StripLayer::fit()
{
    if (!m_surface || !m_connection.hasLayers())
        return;
    LayerPlace where = place();
    if (!m_dragged) {
        m_surface->setPlace(where);
        return;
    }
    where.takesPointer = false;
    m_dragged->setPlace(where);
}

void StripLayer::draw()
{
    LayerSurface *seen = m_dragged ? m_dragged.get() : m_surface.get();
    if (seen == nullptr || seen->size().isEmpty() || !m_connection.hasLayers())
        return;
    const int scale = m_connection.outputs().front()->scale;
    seen->show(m_text.picture(m_size, scale, m_colors));
}

int StripLayer::length() const
{
    return m_connection.outputs().front()->geometry.width();
}

void StripLayer::cover()
{
    LayerPlace place;
    place.layer = LayerShellProtocol::Layer::Overlay;
    place.zone = LayerShellProtocol::Zone::OverBars;
    m_cover = std::make_unique<LayerSurface>(m_connection, m_connection.outputs().front(), place);
    connect(m_cover.get(), &LayerSurface::configured, this,
        [this] { m_cover->showNothing(QRect(QPoint(), m_cover->size())); });
    connect(m_cover.get(), &LayerSurface::pointerMoved, this, &StripLayer::handleMoveOverCover);
    // The release may have gone elsewhere, as to what locks the screen: nothing is to stay over it.
    connect(m_cover.get(), &LayerSurface::pressed, this, &StripLayer::giveUp);
    connect(m_cover.get(), &LayerSurface::left, this, [this] {
        if (!m_dragged)
            giveUp();
    });
    connect(m_cover.get(), &LayerSurface::released, this, &StripLayer::handleRelease);
}

void StripLayer::handlePress(QPointF position, quint32 button)
{
    if (!m_connection.hasLayers() || m_press.isDown())
        return;
    m_search.stop();
    m_inset = stripInset(length(), m_size.width(), m_inset);
    m_pressedStart = length() - m_inset - m_size.width();
    m_press.begin(button, m_pressedStart + position.toPoint().x(), m_inset);
    m_isPlaced = false;
    m_isClicked = false;
    handleMove(position);
    cover();
}

void StripLayer::handleMove(QPointF position)
{
    m_below = m_size.height() - position.toPoint().y();
    moveTo(m_pressedStart + position.toPoint().x());
}

void StripLayer::handleMoveOverCover(QPointF position)
{
    notePlace(position);
    moveTo(position.toPoint().x());
    m_search.stop();
    if (m_isClicked)
        endLater(true);
}

void StripLayer::notePlace(QPointF position)
{
    // A pointer that has gone on meanwhile tells nothing of the strip. No bar is higher than this.
    constexpr int highestBar = 64;
    const int edge = position.toPoint().y() + m_below;
    const int along = position.toPoint().x() - m_pressedStart;
    const bool isOverStrip = along >= 0 && along <= m_size.width();
    if (m_isPlaced || !isOverStrip || edge < m_size.height() || edge > m_size.height() + highestBar)
        return;
    m_isPlaced = true;
    m_lowerEdge = edge;
}

void StripLayer::moveTo(int along)
{
    const std::optional<int> inset = m_press.moveTo(along);
    if (!inset || !m_surface || !m_connection.hasLayers())
        return;
    m_inset = stripInset(length(), m_size.width(), *inset);
    if (!m_dragged)
        beginDrag();
    fit();
    emit dragged(m_inset);
}

void StripLayer::beginDrag()
{
    LayerPlace where = place();
    where.takesPointer = false;
    m_dragged = std::make_unique<LayerSurface>(m_connection, m_connection.outputs().front(), where);
    connect(m_dragged.get(), &LayerSurface::configured, this, &StripLayer::draw);
    m_surface->showNothing(QRect(QPoint(), m_surface->size()));
}

void StripLayer::handleLeaving()
{
    // Where the compositor leaves the pointer to what it moves over, the cover has it from now on.
    if (!m_cover)
        m_press.cancel();
    else if (m_press.isDown())
        m_search.start();
}

void StripLayer::handleRelease(quint32 button)
{
    const bool isClick = m_press.end(button);
    if (m_press.isDown())
        return;
    m_isClicked = isClick && !m_isPlaced;
    if (!m_isClicked) {
        endLater(isClick);
        return;
    }
    m_search.start();
    if (m_cover)
        m_cover->seekPointer();
}

void StripLayer::endSearch()
{
    // What locks the screen takes the pointer, and the release with it.
    if (m_isClicked)
        end(true);
    else
        giveUp();
}

void StripLayer::giveUp()
{
    m_press.cancel();
    endLater(false);
}

void StripLayer::endLater(bool isClick)
{
    m_search.stop();
    m_isClicked = false;
    // What is taken away may be what tells of it.
    QMetaObject::invokeMethod(this, [this, isClick] { end(isClick); }, Qt::QueuedConnection);
}

void StripLayer::end(bool isClick)
{
    m_isClicked = false;
    m_cover.reset();
    if (m_dragged)
        makeSurface();
    if (isClick)
        emit clicked();
}

} // namespace glimmet
