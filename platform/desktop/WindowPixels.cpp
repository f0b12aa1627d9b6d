#include "platform/desktop/WindowPixels.h"

#include "platform/desktop/Xcb.h"

#include <QSysInfo>

#include <algorithm>
#include <array>

namespace glimmet {
namespace {

using namespace xcb;

constexpr int bytesPerPixel = 4;
constexpr int bitsPerByte = 8;

uint8_t depthOf(xcb_connection_t *x, xcb_window_t window)
{
    const auto reply = owned(xcb_get_geometry_reply(x, xcb_get_geometry(x, window), nullptr));
    return reply ? reply->depth : uint8_t(0);
}

xcb_visualid_t visualOf(xcb_connection_t *x, xcb_window_t window)
{
    const auto reply =
        owned(xcb_get_window_attributes_reply(x, xcb_get_window_attributes(x, window), nullptr));
    return reply ? reply->visual : xcb_visualid_t(0);
}

/// Whether a pixel is a word of four bytes in this machine's order.
bool isWord(const xcb_setup_t *setup, uint8_t depth)
{
    const bool isLittle = QSysInfo::ByteOrder == QSysInfo::LittleEndian;
    const int ownOrder = isLittle ? XCB_IMAGE_ORDER_LSB_FIRST : XCB_IMAGE_ORDER_MSB_FIRST;
    if (setup->image_byte_order != ownOrder)
        return false;
    for (auto each = xcb_setup_pixmap_formats_iterator(setup); each.rem > 0; xcb_format_next(&each)) {
        if (each.data->depth == depth)
            return each.data->bits_per_pixel == bytesPerPixel * bitsPerByte;
    }
    return false;
}

/// Whether the colours are where QRgb has them.
bool hasOwnColors(const xcb_visualtype_t &visual)
{
    return visual.red_mask == 0xFF0000 && visual.green_mask == 0xFF00 && visual.blue_mask == 0xFF;
}

bool isAsInMemory(const xcb_setup_t *setup, uint8_t depth, xcb_visualid_t wanted)
{
    if (!isWord(setup, depth))
        return false;
    for (auto root = xcb_setup_roots_iterator(setup); root.rem > 0; xcb_screen_next(&root)) {
        for (auto each = xcb_screen_allowed_depths_iterator(root.data); each.rem > 0; xcb_depth_next(&each)) {
            const xcb_visualtype_t *visuals = xcb_depth_visuals(each.data);
            const xcb_visualtype_t *end = visuals + xcb_depth_visuals_length(each.data);
            const auto *found = std::find_if(visuals, end,
                [wanted](const xcb_visualtype_t &visual) { return visual.visual_id == wanted; });
            if (found != end)
                return each.data->depth == depth && hasOwnColors(*found);
        }
    }
    return false;
}

} // namespace

WindowPixels::WindowPixels(const QWindow &window)
    : m_connection(qtsConnection())
    , m_window(m_connection == nullptr ? 0 : static_cast<uint32_t>(window.winId()))
{
    if (m_connection == nullptr)
        return;
    const uint8_t depth = depthOf(m_connection, m_window);
    if (!isAsInMemory(xcb_get_setup(m_connection), depth, visualOf(m_connection, m_window)))
        return;
    m_depth = depth;
    m_context = xcb_generate_id(m_connection);
    const std::array<uint32_t, 1> noEvents{ 0 };
    xcb_create_gc(m_connection, m_context, m_window, XCB_GC_GRAPHICS_EXPOSURES, noEvents.data());
}

WindowPixels::~WindowPixels()
{
    if (m_depth != 0)
        xcb_free_gc(m_connection, m_context);
}

bool WindowPixels::put(const QImage &picture, QPoint place) const
{
    if (m_depth == 0 || picture.format() != QImage::Format_RGB32)
        return false;
    const auto bytes = static_cast<uint64_t>(picture.sizeInBytes());
    const uint64_t most = bytesPerPixel * uint64_t(xcb_get_maximum_request_length(m_connection));
    if (bytes + sizeof(xcb_put_image_request_t) + bytesPerPixel > most)
        return false;
    xcb_put_image(m_connection, XCB_IMAGE_FORMAT_Z_PIXMAP, m_window, m_context,
        static_cast<uint16_t>(picture.width()), static_cast<uint16_t>(picture.height()),
        static_cast<int16_t>(place.x()), static_cast<int16_t>(place.y()), 0, m_depth,
        static_cast<uint32_t>(bytes), picture.constBits());
    xcb_flush(m_connection);
    return true;
}

} // namespace glimmet
