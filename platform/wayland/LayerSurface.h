#pragma once

#include "platform/wayland/LayerShellProtocol.h"

#include <QImage>
#include <QObject>
#include <QPointF>
#include <QRegion>
#include <QSize>

#include <optional>

struct wl_buffer;
struct wl_surface;
struct wp_viewport;

namespace glimmet {

class WaylandConnection;
struct WaylandOutput;

/// Where a surface lies on its output.
struct LayerPlace {
    LayerShellProtocol::Layer layer = LayerShellProtocol::Layer::Top;
    LayerShellProtocol::Zone zone = LayerShellProtocol::Zone::BesideBars;
    uint32_t edges = LayerShellProtocol::allEdges;
    QSize size{ 0, 0 }; ///< logical; zero from one edge to the other
    int marginRight = 0; ///< from the right edge, logical
    bool takesPointer = true;

    bool operator==(const LayerPlace &) const = default;
};

/// A surface on a layer of an output, which gets the pointer and never the keyboard. Nothing of it is seen
/// before it shows something. Positions are logical, from its upper left corner. Main thread.
class LayerSurface final : public QObject {
    Q_OBJECT

public:
    /// `output`: none leaves the choice to the compositor. `connection` outlives the surface and has layers.
    LayerSurface(WaylandConnection &connection, const WaylandOutput *output, const LayerPlace &place);
    ~LayerSurface() override;

    /// As the compositor wants it; empty before it has told.
    QSize size() const { return m_size; }
    void setPlace(const LayerPlace &place);
    /// Shows the picture from the next turn of the compositor on; its device pixel ratio is a whole number.
    void show(const QImage &picture);
    /// Takes the pointer all over `area`, and shows nothing.
    void showNothing(const QRegion &area);
    /// Has the compositor look again for what is under the pointer, of a surface that lies from edge to edge.
    /// labwc 0.8 does not look when a surface appears, but when it asks for another size: here for the one
    /// that it has.
    void seekPointer();

signals:
    void configured();
    void pointerMoved(QPointF position);
    void left();
    /// `button` as the kernel numbers them.
    void pressed(QPointF position, quint32 button);
    void released(quint32 button);
    /// The compositor has taken it away, as with its output.
    void closed();

private:
    struct Listeners;

    void takePointer(const QRegion &area);
    void handleConfigure(uint32_t serial, QSize size);
    void attach(const QImage &pixels);
    void giveBack();

    WaylandConnection &m_connection;
    wl_surface *m_surface = nullptr;
    wp_viewport *m_viewport = nullptr;
    zwlr_layer_surface_v1 *m_layer = nullptr;
    std::optional<LayerPlace> m_place;
    QSize m_size;
};

} // namespace glimmet
