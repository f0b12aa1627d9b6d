#include "platform/desktop/Frames.h"

#include "platform/desktop/Xcb.h"

namespace glimmet {
namespace {

using namespace xcb;
using enum RootWindow::Kind;

QList<xcb_window_t> windowsOf(xcb_connection_t *x, xcb_window_t parent)
{
    const auto reply = owned(xcb_query_tree_reply(x, xcb_query_tree(x, parent), nullptr));
    if (!reply)
        return {};
    const xcb_window_t *children = xcb_query_tree_children(reply.get());
    return { children, children + xcb_query_tree_children_length(reply.get()) };
}

bool isShown(xcb_connection_t *x, xcb_window_t window)
{
    const auto reply =
        owned(xcb_get_window_attributes_reply(x, xcb_get_window_attributes(x, window), nullptr));
    return reply && reply->map_state == XCB_MAP_STATE_VIEWABLE;
}

QRect areaOf(xcb_connection_t *x, xcb_window_t window)
{
    const auto reply = owned(xcb_get_geometry_reply(x, xcb_get_geometry(x, window), nullptr));
    return reply ? QRect(reply->x, reply->y, reply->width, reply->height) : QRect();
}

RootWindow::Kind kindOf(xcb_connection_t *x, xcb_window_t window, const FrameAtoms &atoms)
{
    if (!property(x, window, XCB_ATOM_WM_CLASS).startsWith("i3-frame"))
        return Other;
    for (const xcb_window_t child : windowsOf(x, window)) {
        if (hasAtom(x, child, atoms.windowType, atoms.dock))
            return Bar;
        if (hasAtom(x, child, atoms.state, atoms.fullScreen))
            return FullScreen;
    }
    return Frame;
}

} // namespace

FrameAtoms frameAtoms(xcb_connection_t *connection)
{
    return { atom(connection, "_NET_WM_WINDOW_TYPE"), atom(connection, "_NET_WM_WINDOW_TYPE_DOCK"),
        atom(connection, "_NET_WM_STATE"), atom(connection, "_NET_WM_STATE_FULLSCREEN") };
}

QList<RootWindow> rootWindows(xcb_connection_t *connection, const FrameAtoms &atoms)
{
    QList<RootWindow> windows;
    for (const xcb_window_t window : windowsOf(connection, rootWindow(connection))) {
        if (isShown(connection, window))
            windows.append({ window, areaOf(connection, window), kindOf(connection, window, atoms) });
    }
    return windows;
}

QList<QRect> barsAmong(const QList<RootWindow> &windows)
{
    QList<QRect> areas;
    for (const RootWindow &window : windows) {
        if (window.kind == Bar)
            areas.append(window.area);
    }
    return areas;
}

std::optional<StackPlace> placeAmongFrames(const QList<RootWindow> &windows, quint32 own)
{
    std::optional<StackPlace> wanted;
    bool isThere = true;
    for (const RootWindow &window : windows) {
        if (window.id == own) {
            // Above one that fills the screen it is not.
            isThere = !wanted || wanted->side == StackPlace::Side::Above;
        } else if (window.kind == FullScreen) {
            if (!wanted || wanted->side == StackPlace::Side::Above)
                wanted = { window.id, StackPlace::Side::Below };
        } else if (window.kind != Other && (!wanted || wanted->side == StackPlace::Side::Above)) {
            wanted = { window.id, StackPlace::Side::Above };
            isThere = false;
        }
    }
    return isThere ? std::nullopt : wanted;
}

} // namespace glimmet
