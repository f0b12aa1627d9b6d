#include "platform/wayland/LayerShellProtocol.h"

#include <wayland-client-protocol.h>

#include <array>

namespace glimmet::LayerShellProtocol {
namespace {

// The numbers of the requests are their places in these tables.
enum ShellRequest : uint32_t { GetLayerSurface };
enum SurfaceRequest : uint32_t {
    SetSize,
    SetAnchor,
    SetExclusiveZone,
    SetMargin,
    SetKeyboardInteractivity,
    GetPopup,
    AckConfigure,
    Destroy,
};

// Not const, since the library takes them as variables.
std::array<const wl_interface *, 4> noTypes{};

const std::array<wl_message, 8> surfaceRequests{ {
    { "set_size", "uu", noTypes.data() },
    { "set_anchor", "u", noTypes.data() },
    { "set_exclusive_zone", "i", noTypes.data() },
    { "set_margin", "iiii", noTypes.data() },
    { "set_keyboard_interactivity", "u", noTypes.data() },
    { "get_popup", "o", noTypes.data() },
    { "ack_configure", "u", noTypes.data() },
    { "destroy", "", noTypes.data() },
} };

const std::array<wl_message, 2> surfaceEvents{ {
    { "configure", "uuu", noTypes.data() },
    { "closed", "", noTypes.data() },
} };

const wl_interface surfaceTable{ "zwlr_layer_surface_v1", 1, static_cast<int>(surfaceRequests.size()),
    surfaceRequests.data(), static_cast<int>(surfaceEvents.size()), surfaceEvents.data() };

std::array<const wl_interface *, 5> layerSurfaceTypes{ &surfaceTable, &wl_surface_interface,
    &wl_output_interface, nullptr, nullptr };

const std::array<wl_message, 1> shellRequests{ {
    { "get_layer_surface", "no?ous", layerSurfaceTypes.data() },
} };

const wl_interface shellTable{ "zwlr_layer_shell_v1", 1, static_cast<int>(shellRequests.size()),
    shellRequests.data(), 0, nullptr };

wl_proxy *proxyOf(zwlr_layer_surface_v1 *surface)
{
    return reinterpret_cast<wl_proxy *>(surface);
}

template <typename... Values>
void send(zwlr_layer_surface_v1 *surface, SurfaceRequest request, uint32_t flags, Values... values)
{
    wl_proxy *proxy = proxyOf(surface);
    wl_proxy_marshal_flags(proxy, request, nullptr, wl_proxy_get_version(proxy), flags, values...);
}

} // namespace

const wl_interface &shellInterface()
{
    return shellTable;
}

zwlr_layer_surface_v1 *makeSurface(
    zwlr_layer_shell_v1 *shell, wl_surface *surface, wl_output *output, Layer layer, const char *purpose)
{
    auto *proxy = reinterpret_cast<wl_proxy *>(shell);
    return reinterpret_cast<zwlr_layer_surface_v1 *>(
        wl_proxy_marshal_flags(proxy, GetLayerSurface, &surfaceTable, wl_proxy_get_version(proxy), 0, nullptr,
            surface, output, static_cast<uint32_t>(layer), purpose));
}

void listen(zwlr_layer_surface_v1 *surface, const SurfaceListener &listener, void *data)
{
    // The library wants functions without their types, and calls each with those of its event.
    auto *functions = reinterpret_cast<void (**)()>(const_cast<SurfaceListener *>(&listener));
    wl_proxy_add_listener(proxyOf(surface), functions, data);
}

void setSize(zwlr_layer_surface_v1 *surface, uint32_t width, uint32_t height)
{
    send(surface, SetSize, 0, width, height);
}

void setAnchor(zwlr_layer_surface_v1 *surface, uint32_t edges)
{
    send(surface, SetAnchor, 0, edges);
}

void setZone(zwlr_layer_surface_v1 *surface, Zone zone)
{
    send(surface, SetExclusiveZone, 0, static_cast<int32_t>(zone));
}

void setMargin(zwlr_layer_surface_v1 *surface, int32_t top, int32_t right, int32_t bottom, int32_t left)
{
    send(surface, SetMargin, 0, top, right, bottom, left);
}

void acknowledge(zwlr_layer_surface_v1 *surface, uint32_t serial)
{
    send(surface, AckConfigure, 0, serial);
}

void destroy(zwlr_layer_surface_v1 *surface)
{
    send(surface, Destroy, WL_MARSHAL_FLAG_DESTROY);
}

} // namespace glimmet::LayerShellProtocol
