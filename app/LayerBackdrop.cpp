#include "app/LayerBackdrop.h"

#include "platform/desktop/X11.h"
#include "platform/wayland/LayerSurface.h"
#include "platform/wayland/WaylandConnection.h"

#include <algorithm>
#include <chrono>
#include <cmath>

namespace glimmet {
namespace {

/// A pointer whose button is still down stays with what it was pressed on, and nothing tells when it is let
/// go.
constexpr std::chrono::milliseconds seekInterval{ 50 };
constexpr int mostSeeks = 10;

/// The whole pixel that holds a position on an output, whose last one may be passed by a fraction.
QPoint pointIn(const QRect &output, QPointF position)
{
    const auto whole = [](qreal value, int size) {
        return std::clamp(static_cast<int>(std::floor(value)), 0, size - 1);
    };
    return output.topLeft()
        + QPoint(whole(position.x(), output.width()), whole(position.y(), output.height()));
}

} // namespace

/// One output with what lies over it.
struct LayerBackdrop::Cover {
    Cover(WaylandConnection &connection, const WaylandOutput &output)
        : name(output.name)
        , geometry(output.geometry)
        , free(connection, &output, place(LayerShellProtocol::Zone::BesideBars))
        , all(connection, &output, place(LayerShellProtocol::Zone::OverBars))
    {
    }

    static LayerPlace place(LayerShellProtocol::Zone zone)
    {
        LayerPlace place;
        place.layer = LayerShellProtocol::Layer::Overlay;
        place.zone = zone;
        return place;
    }

    uint32_t name; ///< the registry's name
    QRect geometry;
    LayerSurface free; ///< never shown: the compositor tells by its size how much the bars leave
    LayerSurface all;
};

bool needsLayers(const WaylandConnection &connection)
{
    // Others that have layers put a window where it asks to be.
    return connection.offersLayers() && X11::isWlroots();
}

QPoint besideBar(QPoint pointer, const QRect &output, QSize free)
{
    // There may be one at either edge; no bar is higher than this.
    constexpr int highestBar = 64;
    const int bars = free.isEmpty() ? 0 : std::min(output.height() - free.height(), highestBar);
    const int bottom = output.top() + output.height();
    if (pointer.y() < output.top() + bars)
        return { pointer.x(), output.top() + bars };
    if (pointer.y() >= bottom - bars)
        return { pointer.x(), bottom - bars };
    return pointer;
}

LayerBackdrop::LayerBackdrop(
    WaylandConnection &connection, const QByteArray &swayPath, Timers &timers, QObject *parent)
    : PanelBackdrop(parent)
    , m_connection(connection)
    , m_sway(swayPath)
    , m_seekTimer(timers, seekInterval, [this] { seekPointer(); })
{
    connect(&connection, &WaylandConnection::changed, this, &LayerBackdrop::coverAll);
    connect(&m_sway, &I3Connection::received, this, [this](const QByteArray &payload) {
        if (I3Ipc::isFocusEvent(payload))
            emit keyboardTaken();
    });
    m_sway.send(I3Ipc::Type::Subscribe, I3Ipc::windowEvents);
    coverAll();
    m_seekTimer.start();
}

LayerBackdrop::~LayerBackdrop() = default;

void LayerBackdrop::letThrough(const QRect &place)
{
    m_hole = place;
    for (const auto &cover : m_covers)
        takePresses(*cover);
}

void LayerBackdrop::setOpen(bool isOpen)
{
    m_isOpen = isOpen;
    for (const auto &cover : m_covers)
        takePresses(*cover);
}

void LayerBackdrop::coverAll()
{
    if (!hasAllOutputs())
        emit outputGone();
    m_covers.clear();
    if (!m_connection.hasLayers())
        return;
    for (const WaylandOutput *output : m_connection.outputs()) {
        m_covers.push_back(std::make_unique<Cover>(m_connection, *output));
        Cover &cover = *m_covers.back();
        connect(&cover.all, &LayerSurface::configured, this, [this, &cover] { takePresses(cover); });
        connect(&cover.all, &LayerSurface::pressed, this, [this] { emit pressed(); });
        connect(&cover.all, &LayerSurface::closed, this, &LayerBackdrop::coverAll, Qt::QueuedConnection);
        connect(&cover.all, &LayerSurface::pointerMoved, this, [this, &cover](QPointF position) {
            m_seekTimer.stop();
            emit pointerFound(
                besideBar(pointIn(cover.geometry, position), cover.geometry, cover.free.size()));
        });
    }
}

bool LayerBackdrop::hasAllOutputs() const
{
    const auto outputs = m_connection.outputs();
    return std::all_of(m_covers.begin(), m_covers.end(), [&outputs](const auto &cover) {
        return std::any_of(outputs.begin(), outputs.end(),
            [&cover](const WaylandOutput *output) { return output->name == cover->name; });
    });
}

void LayerBackdrop::seekPointer()
{
    for (const auto &cover : m_covers)
        cover->all.seekPointer();
    if (++m_seeks < mostSeeks)
        m_seekTimer.start();
}

void LayerBackdrop::takePresses(Cover &cover) const
{
    QRegion area;
    if (!m_isOpen)
        area = QRegion(QRect(QPoint(), cover.geometry.size())) - m_hole.translated(-cover.geometry.topLeft());
    cover.all.showNothing(area);
}

} // namespace glimmet
