#pragma once

#include <wayland-client-core.h>

#include <cstdint>

struct wl_output;
struct wl_surface;
struct zwlr_layer_shell_v1;
struct zwlr_layer_surface_v1;

/// What the program uses of version 1 of wlr-layer-shell-unstable-v1
/// (https://wayland.app/protocols/wlr-layer-shell-unstable-v1), of which Debian has no description to
/// generate this from.
namespace glimmet::LayerShellProtocol {

enum class Layer : uint32_t { Top = 2, Overlay = 3 };

enum Edge : uint32_t { TopEdge = 1, BottomEdge = 2, LeftEdge = 4, RightEdge = 8 };
constexpr uint32_t allEdges = TopEdge | BottomEdge | LeftEdge | RightEdge;

/// Clear of what other surfaces keep free for themselves, or over it.
enum class Zone : int32_t { BesideBars = 0, OverBars = -1 };

struct SurfaceListener {
    void (*configure)(
        void *data, zwlr_layer_surface_v1 *surface, uint32_t serial, uint32_t width, uint32_t height);
    void (*closed)(void *data, zwlr_layer_surface_v1 *surface);
};

const wl_interface &shellInterface();

/// `output`: none leaves the choice to the compositor. `purpose` tells other programs what the surface is.
zwlr_layer_surface_v1 *makeSurface(
    zwlr_layer_shell_v1 *shell, wl_surface *surface, wl_output *output, Layer layer, const char *purpose);
void listen(zwlr_layer_surface_v1 *surface, const SurfaceListener &listener, void *data);
/// Logical pixels; 0 from one edge to the other, both of which it is then anchored to.
void setSize(zwlr_layer_surface_v1 *surface, uint32_t width, uint32_t height);
void setAnchor(zwlr_layer_surface_v1 *surface, uint32_t edges);
void setZone(zwlr_layer_surface_v1 *surface, Zone zone);
void setMargin(zwlr_layer_surface_v1 *surface, int32_t top, int32_t right, int32_t bottom, int32_t left);
void acknowledge(zwlr_layer_surface_v1 *surface, uint32_t serial);
void destroy(zwlr_layer_surface_v1 *surface);

} // namespace glimmet::LayerShellProtocol
