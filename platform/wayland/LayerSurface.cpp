#include "platform/wayland/LayerSurface.h"

#include "platform/wayland/WaylandConnection.h"

#include "viewporter-client-protocol.h"

#include <wayland-client.h>

#include <sys/mman.h>
#include <unistd.h>

namespace glimmet {
namespace {

/// The pixels in memory that the compositor reads, which lives until it has done so. None where there are no
/// descriptors or no memory left.
wl_buffer *makeBuffer(wl_shm *memory, const QImage &pixels)
{
    static constexpr wl_buffer_listener listener{ [](void *, wl_buffer *buffer) {
        wl_buffer_destroy(buffer);
    } };
    const auto size = static_cast<int32_t>(pixels.sizeInBytes());
    const int file = memfd_create("glimmet", MFD_CLOEXEC);
    if (file < 0)
        return nullptr;
    wl_buffer *buffer = nullptr;
    if (pwrite(file, pixels.constBits(), static_cast<size_t>(size), 0) == size) {
        wl_shm_pool *pool = wl_shm_create_pool(memory, file, size);
        buffer = wl_shm_pool_create_buffer(pool, 0, pixels.width(), pixels.height(),
            static_cast<int32_t>(pixels.bytesPerLine()), WL_SHM_FORMAT_ARGB8888);
        wl_buffer_add_listener(buffer, &listener, nullptr);
        wl_shm_pool_destroy(pool);
    }
    close(file);
    return buffer;
}

} // namespace

struct LayerSurface::Listeners {
    static LayerSurface &self(void *data) { return *static_cast<LayerSurface *>(data); }

    static void configure(
        void *data, zwlr_layer_surface_v1 *, uint32_t serial, uint32_t width, uint32_t height)
    {
        self(data).handleConfigure(serial, QSize(static_cast<int>(width), static_cast<int>(height)));
    }
    static void closed(void *data, zwlr_layer_surface_v1 *) { emit self(data).closed(); }
    static constexpr LayerShellProtocol::SurfaceListener layer{ configure, closed };
};

LayerSurface::LayerSurface(
    WaylandConnection &connection, const WaylandOutput *output, const LayerPlace &place)
    : m_connection(connection)
    , m_surface(wl_compositor_create_surface(connection.m_compositor))
    , m_viewport(wp_viewporter_get_viewport(connection.m_viewporter, m_surface))
    , m_layer(LayerShellProtocol::makeSurface(connection.m_shell, m_surface,
          output == nullptr ? nullptr : output->output, place.layer, "glimmet"))
{
    wl_surface_set_user_data(m_surface, this);
    LayerShellProtocol::listen(m_layer, Listeners::layer, this);
    connect(&connection, &WaylandConnection::ending, this, &LayerSurface::giveBack);
    setPlace(place);
}

LayerSurface::~LayerSurface()
{
    giveBack();
    m_connection.flush();
}

void LayerSurface::setPlace(const LayerPlace &place)
{
    if (m_surface == nullptr || m_place == place)
        return;
    m_place = place;
    LayerShellProtocol::setSize(
        m_layer, static_cast<uint32_t>(place.size.width()), static_cast<uint32_t>(place.size.height()));
    LayerShellProtocol::setAnchor(m_layer, place.edges);
    LayerShellProtocol::setZone(m_layer, place.zone);
    LayerShellProtocol::setMargin(m_layer, 0, place.marginRight, 0, 0);
    if (!place.takesPointer)
        takePointer({});
    wl_surface_commit(m_surface);
    m_connection.flush();
}

void LayerSurface::show(const QImage &picture)
{
    if (m_size.isEmpty() || m_surface == nullptr)
        return;
    constexpr int32_t ofThePicture = -1;
    wp_viewport_set_destination(m_viewport, ofThePicture, ofThePicture);
    wl_surface_set_buffer_scale(m_surface, static_cast<int32_t>(picture.devicePixelRatio()));
    attach(picture.convertToFormat(QImage::Format_ARGB32_Premultiplied));
}

void LayerSurface::showNothing(const QRegion &area)
{
    if (m_size.isEmpty() || m_surface == nullptr)
        return;
    takePointer(area);
    // One clear pixel, as large as the surface.
    wl_surface_set_buffer_scale(m_surface, 1);
    wp_viewport_set_destination(m_viewport, m_size.width(), m_size.height());
    QImage pixel(1, 1, QImage::Format_ARGB32_Premultiplied);
    pixel.fill(Qt::transparent);
    attach(pixel);
}

void LayerSurface::seekPointer()
{
    if (m_size.isEmpty() || !m_place)
        return;
    LayerPlace place = *m_place;
    place.size = place.size.isEmpty() ? m_size : QSize(0, 0);
    setPlace(place);
}

void LayerSurface::takePointer(const QRegion &area)
{
    wl_region *region = wl_compositor_create_region(m_connection.m_compositor);
    for (const QRect &part : area)
        wl_region_add(region, part.x(), part.y(), part.width(), part.height());
    wl_surface_set_input_region(m_surface, region);
    wl_region_destroy(region);
}

void LayerSurface::handleConfigure(uint32_t serial, QSize size)
{
    LayerShellProtocol::acknowledge(m_layer, serial);
    m_size = size;
    emit configured();
}

void LayerSurface::attach(const QImage &pixels)
{
    wl_buffer *buffer = makeBuffer(m_connection.m_memory, pixels);
    if (buffer == nullptr)
        return;
    wl_surface_attach(m_surface, buffer, 0, 0);
    wl_surface_damage_buffer(m_surface, 0, 0, pixels.width(), pixels.height());
    wl_surface_commit(m_surface);
    m_connection.flush();
}

void LayerSurface::giveBack()
{
    if (m_surface == nullptr)
        return;
    if (m_connection.m_under == m_surface)
        m_connection.m_under = nullptr;
    LayerShellProtocol::destroy(m_layer);
    wp_viewport_destroy(m_viewport);
    wl_surface_destroy(m_surface);
    m_surface = nullptr;
}

} // namespace glimmet
