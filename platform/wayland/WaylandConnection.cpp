#include "platform/wayland/WaylandConnection.h"

#include "platform/wayland/LayerShellProtocol.h"
#include "platform/wayland/LayerSurface.h"

#include "viewporter-client-protocol.h"
#include "xdg-output-unstable-v1-client-protocol.h"

#include <wayland-client.h>

#include <algorithm>
#include <cstring>
#include <utility>

namespace glimmet {
namespace {

template <typename Object, auto Destroy> void drop(Object *&object)
{
    if (Object *old = std::exchange(object, nullptr))
        Destroy(old);
}

void destroyShell(zwlr_layer_shell_v1 *shell)
{
    wl_proxy_destroy(reinterpret_cast<wl_proxy *>(shell));
}

} // namespace

/// What the library calls: plain functions, each with the object that it was told.
struct WaylandConnection::Listeners {
    static WaylandConnection &self(void *data) { return *static_cast<WaylandConnection *>(data); }

    static void global(void *data, wl_registry *, uint32_t name, const char *interface, uint32_t version)
    {
        self(data).takeGlobal(name, interface, version);
    }
    static void globalRemoved(void *data, wl_registry *, uint32_t name) { self(data).dropGlobal(name); }
    static constexpr wl_registry_listener registry{ global, globalRemoved };

    static void started(void *data, wl_callback *, uint32_t) { self(data).handleStart(); }
    static constexpr wl_callback_listener start{ started };

    static void capabilities(void *data, wl_seat *, uint32_t capabilities)
    {
        self(data).followSeat((capabilities & WL_SEAT_CAPABILITY_POINTER) != 0);
    }
    static void seatName(void *, wl_seat *, const char *) {}
    static constexpr wl_seat_listener seat{ capabilities, seatName };

    static void outputPlace(
        void *, wl_output *, int32_t, int32_t, int32_t, int32_t, int32_t, const char *, const char *, int32_t)
    {
    }
    static void outputMode(void *, wl_output *, uint32_t, int32_t, int32_t, int32_t) {}
    static void outputDone(void *data, wl_output *) { tell(data); }
    static void tell(void *data)
    {
        auto &told = *static_cast<WaylandOutput *>(data);
        told.connection->tellOutput(told);
    }
    static void outputScale(void *data, wl_output *, int32_t factor)
    {
        static_cast<WaylandOutput *>(data)->scale = std::max(1, factor);
    }
    static void outputName(void *, wl_output *, const char *) {}
    static constexpr wl_output_listener output{ outputPlace, outputMode, outputDone, outputScale, outputName,
        outputName };

    static void layoutPosition(void *data, zxdg_output_v1 *, int32_t x, int32_t y)
    {
        static_cast<WaylandOutput *>(data)->geometry.moveTo(x, y);
    }
    static void layoutSize(void *data, zxdg_output_v1 *, int32_t width, int32_t height)
    {
        static_cast<WaylandOutput *>(data)->geometry.setSize({ width, height });
    }
    static void layoutDone(void *data, zxdg_output_v1 *) { tell(data); }
    static void layoutName(void *, zxdg_output_v1 *, const char *) {}
    static constexpr zxdg_output_v1_listener layout{ layoutPosition, layoutSize, layoutDone, layoutName,
        layoutName };

    static void entered(void *data, wl_pointer *, uint32_t, wl_surface *surface, wl_fixed_t x, wl_fixed_t y)
    {
        self(data).m_under = surface;
        moved(data, nullptr, 0, x, y);
    }
    static void left(void *data, wl_pointer *, uint32_t, wl_surface *)
    {
        if (LayerSurface *surface = surfaceOf(std::exchange(self(data).m_under, nullptr)))
            emit surface->left();
    }
    static void moved(void *data, wl_pointer *, uint32_t, wl_fixed_t x, wl_fixed_t y)
    {
        WaylandConnection &connection = self(data);
        connection.m_position = QPointF(wl_fixed_to_double(x), wl_fixed_to_double(y));
        if (LayerSurface *surface = surfaceOf(connection.m_under))
            emit surface->pointerMoved(connection.m_position);
    }
    static void button(void *data, wl_pointer *, uint32_t, uint32_t, uint32_t button, uint32_t state)
    {
        const WaylandConnection &connection = self(data);
        LayerSurface *surface = surfaceOf(connection.m_under);
        if (surface == nullptr)
            return;
        if (state == WL_POINTER_BUTTON_STATE_PRESSED)
            emit surface->pressed(connection.m_position, button);
        else
            emit surface->released(button);
    }
    static void axis(void *, wl_pointer *, uint32_t, uint32_t, wl_fixed_t) {}
    static wl_pointer_listener pointerListener()
    {
        wl_pointer_listener listener{};
        listener.enter = entered;
        listener.leave = left;
        listener.motion = moved;
        listener.button = button;
        listener.axis = axis;
        return listener;
    }
};

WaylandConnection::WaylandConnection(QObject *parent)
    : QObject(parent)
{
    // Without a name the library would try one of its own.
    if (qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY"))
        return;
    m_display = wl_display_connect(nullptr);
    if (m_display == nullptr)
        return;
    m_registry = wl_display_get_registry(m_display);
    wl_registry_add_listener(m_registry, &Listeners::registry, this);
    m_start = wl_display_sync(m_display);
    wl_callback_add_listener(m_start, &Listeners::start, this);
    m_notifier = std::make_unique<QSocketNotifier>(wl_display_get_fd(m_display), QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, &WaylandConnection::readEvents);
    flush();
}

WaylandConnection::~WaylandConnection()
{
    giveUp();
}

bool WaylandConnection::offersLayers() const
{
    const bool hasAll = m_compositor != nullptr && m_memory != nullptr && m_viewporter != nullptr
        && m_shell != nullptr && m_layouts != nullptr;
    return m_start == nullptr && hasAll;
}

std::vector<const WaylandOutput *> WaylandConnection::outputs() const
{
    std::vector<const WaylandOutput *> known;
    for (const auto &output : m_outputs) {
        if (!output->geometry.isEmpty())
            known.push_back(output.get());
    }
    return known;
}

void WaylandConnection::readEvents()
{
    if (wl_display_dispatch(m_display) < 0) {
        giveUp();
        emit changed();
        return;
    }
    flush();
}

void WaylandConnection::flush()
{
    if (m_display != nullptr)
        wl_display_flush(m_display);
}

void WaylandConnection::takeGlobal(uint32_t name, const char *interface, uint32_t version)
{
    const auto isOf = [interface](
                          const wl_interface &wanted) { return std::strcmp(interface, wanted.name) == 0; };
    const auto take = [&](auto *&object, const wl_interface &wanted, uint32_t most) {
        if (object == nullptr && isOf(wanted))
            object = static_cast<std::remove_reference_t<decltype(object)>>(
                wl_registry_bind(m_registry, name, &wanted, std::min(version, most)));
    };
    // No newer versions than those whose events are listened to.
    take(m_compositor, wl_compositor_interface, 4);
    take(m_memory, wl_shm_interface, 1);
    take(m_viewporter, wp_viewporter_interface, 1);
    take(m_shell, LayerShellProtocol::shellInterface(), 1);
    if (m_seat == nullptr && isOf(wl_seat_interface)) {
        take(m_seat, wl_seat_interface, 1);
        wl_seat_add_listener(m_seat, &Listeners::seat, this);
    }
    if (m_layouts == nullptr && isOf(zxdg_output_manager_v1_interface)) {
        take(m_layouts, zxdg_output_manager_v1_interface, 1);
        for (const auto &output : m_outputs)
            followLayout(*output);
    }
    if (isOf(wl_output_interface) && version >= 2) {
        m_outputs.push_back(std::make_unique<WaylandOutput>());
        WaylandOutput &output = *m_outputs.back();
        output.connection = this;
        output.name = name;
        take(output.output, wl_output_interface, 2);
        wl_output_add_listener(output.output, &Listeners::output, &output);
        if (m_layouts != nullptr)
            followLayout(output);
    }
}

void WaylandConnection::followLayout(WaylandOutput &output)
{
    output.layout = zxdg_output_manager_v1_get_xdg_output(m_layouts, output.output);
    zxdg_output_v1_add_listener(output.layout, &Listeners::layout, &output);
}

void WaylandConnection::tellOutput(WaylandOutput &output)
{
    if (output.geometry == output.toldGeometry && output.scale == output.toldScale)
        return;
    output.toldGeometry = output.geometry;
    output.toldScale = output.scale;
    emit changed();
}

void WaylandConnection::dropGlobal(uint32_t name)
{
    const auto gone = std::find_if(
        m_outputs.begin(), m_outputs.end(), [name](const auto &output) { return output->name == name; });
    if (gone == m_outputs.end())
        return;
    drop<zxdg_output_v1, zxdg_output_v1_destroy>((*gone)->layout);
    drop<wl_output, wl_output_destroy>((*gone)->output);
    m_outputs.erase(gone);
    emit changed();
}

void WaylandConnection::followSeat(bool hasPointer)
{
    if (!hasPointer) {
        m_under = nullptr;
        drop<wl_pointer, wl_pointer_destroy>(m_pointer);
        emit pointerGone();
        return;
    }
    if (m_pointer != nullptr)
        return;
    static const wl_pointer_listener listener = Listeners::pointerListener();
    m_pointer = wl_seat_get_pointer(m_seat);
    wl_pointer_add_listener(m_pointer, &listener, this);
}

void WaylandConnection::handleStart()
{
    drop<wl_callback, wl_callback_destroy>(m_start);
    // Another compositor's connection has no use.
    if (m_shell == nullptr)
        QMetaObject::invokeMethod(this, &WaylandConnection::giveUp, Qt::QueuedConnection);
    else
        emit changed();
}

void WaylandConnection::giveUp()
{
    if (m_display == nullptr)
        return;
    emit ending();
    m_notifier.reset();
    m_under = nullptr;
    for (const auto &output : m_outputs) {
        drop<zxdg_output_v1, zxdg_output_v1_destroy>(output->layout);
        drop<wl_output, wl_output_destroy>(output->output);
    }
    m_outputs.clear();
    drop<wl_callback, wl_callback_destroy>(m_start);
    drop<wl_pointer, wl_pointer_destroy>(m_pointer);
    drop<wl_seat, wl_seat_destroy>(m_seat);
    drop<zxdg_output_manager_v1, zxdg_output_manager_v1_destroy>(m_layouts);
    drop<wp_viewporter, wp_viewporter_destroy>(m_viewporter);
    drop<zwlr_layer_shell_v1, destroyShell>(m_shell);
    drop<wl_shm, wl_shm_destroy>(m_memory);
    drop<wl_compositor, wl_compositor_destroy>(m_compositor);
    drop<wl_registry, wl_registry_destroy>(m_registry);
    wl_display_disconnect(std::exchange(m_display, nullptr));
}

LayerSurface *WaylandConnection::surfaceOf(wl_surface *surface)
{
    return surface == nullptr ? nullptr : static_cast<LayerSurface *>(wl_surface_get_user_data(surface));
}

} // namespace glimmet
