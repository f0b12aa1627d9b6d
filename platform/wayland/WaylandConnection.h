#pragma once

#include <QHash>
#include <QObject>
#include <QPoint>
#include <QRect>
#include <QSocketNotifier>

#include <memory>
#include <vector>

struct wl_callback;
struct wl_compositor;
struct wl_display;
struct wl_output;
struct wl_pointer;
struct wl_registry;
struct wl_seat;
struct wl_shm;
struct wl_surface;
struct wp_viewporter;
struct zwlr_layer_shell_v1;
struct zxdg_output_manager_v1;
struct zxdg_output_v1;

namespace glimmet {

class LayerSurface;
class WaylandConnection;

/// One output of the compositor's.
struct WaylandOutput {
    WaylandConnection *connection = nullptr;
    wl_output *output = nullptr;
    zxdg_output_v1 *layout = nullptr;
    uint32_t name = 0; ///< the registry's
    QRect geometry; ///< among the others, logical: the native pixels of XWayland's root window
    int scale = 1; ///< the next whole one where it has a fraction
    QRect toldGeometry; ///< as of the last change that was told
    int toldScale = 0;
};

/// A connection of the program's own to the Wayland compositor of the session, beside that to the X server
/// over which its windows go. Nothing waits: what the compositor has is known a moment after the start. Main
/// thread.
class WaylandConnection final : public QObject {
    Q_OBJECT

public:
    /// To the compositor that WAYLAND_DISPLAY names, if there is one.
    explicit WaylandConnection(QObject *parent = nullptr);
    ~WaylandConnection() override;

    /// Whether the compositor has layers, also while it has no output to show them on.
    bool offersLayers() const;
    /// Whether surfaces can be made now: there is an output as well.
    bool hasLayers() const { return offersLayers() && !outputs().empty(); }
    /// Those of which the place is known.
    std::vector<const WaylandOutput *> outputs() const;

signals:
    /// `hasLayers()` or the outputs have changed.
    void changed();
    /// There is no pointer any more, whose buttons may have been down.
    void pointerGone();
    /// What was made over it has to be given back now: the compositor is gone.
    void ending();

private:
    friend class LayerSurface;
    struct Listeners;

    void readEvents();
    void flush();
    void takeGlobal(uint32_t name, const char *interface, uint32_t version);
    void dropGlobal(uint32_t name);
    void followLayout(WaylandOutput &output);
    void tellOutput(WaylandOutput &output);
    void followSeat(bool hasPointer);
    void handleStart();
    void giveUp();
    static LayerSurface *surfaceOf(wl_surface *surface);

    wl_display *m_display = nullptr;
    wl_registry *m_registry = nullptr;
    wl_callback *m_start = nullptr; ///< until everything there is has been told
    wl_compositor *m_compositor = nullptr;
    wl_shm *m_memory = nullptr;
    wl_seat *m_seat = nullptr;
    wl_pointer *m_pointer = nullptr;
    wp_viewporter *m_viewporter = nullptr;
    zwlr_layer_shell_v1 *m_shell = nullptr;
    zxdg_output_manager_v1 *m_layouts = nullptr;
    std::vector<std::unique_ptr<WaylandOutput>> m_outputs;
    std::unique_ptr<QSocketNotifier> m_notifier;
    wl_surface *m_under = nullptr; ///< the surface that the pointer is over
    QPointF m_position; ///< in it, logical
};

} // namespace glimmet
