#include "platform/desktop/Xcb.h"

#include <QGuiApplication>

#include <cstring>

namespace glimmet::xcb {

xcb_connection_t *qtsConnection()
{
    const auto *x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 == nullptr ? nullptr : x11->connection();
}

xcb_window_t rootWindow(xcb_connection_t *x)
{
    return xcb_setup_roots_iterator(xcb_get_setup(x)).data->root;
}

xcb_atom_t atom(xcb_connection_t *x, const QByteArray &name)
{
    const auto cookie = xcb_intern_atom(x, 0, static_cast<uint16_t>(name.size()), name.constData());
    const auto reply = owned(xcb_intern_atom_reply(x, cookie, nullptr));
    return reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
}

QByteArray property(xcb_connection_t *x, xcb_window_t window, xcb_atom_t name)
{
    constexpr uint32_t most = 64; // in units of four bytes
    const auto cookie = xcb_get_property(x, 0, window, name, XCB_GET_PROPERTY_TYPE_ANY, 0, most);
    const auto reply = owned(xcb_get_property_reply(x, cookie, nullptr));
    if (!reply)
        return {};
    return { static_cast<const char *>(xcb_get_property_value(reply.get())),
        xcb_get_property_value_length(reply.get()) };
}

bool hasAtom(xcb_connection_t *x, xcb_window_t window, xcb_atom_t name, xcb_atom_t wanted)
{
    const QByteArray list = property(x, window, name);
    for (qsizetype at = 0; at + qsizetype(sizeof(wanted)) <= list.size(); at += sizeof(wanted)) {
        if (std::memcmp(list.constData() + at, &wanted, sizeof(wanted)) == 0)
            return true;
    }
    return false;
}

} // namespace glimmet::xcb
