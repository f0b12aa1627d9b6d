#include "platform/desktop/Frames.h"

#include "platform/desktop/Xcb.h"

#include <algorithm>
#include <iterator>

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

uint8_t mapState(xcb_connection_t *x, xcb_window_t window)
{
    const auto reply =
        owned(xcb_get_window_attributes_reply(x, xcb_get_window_attributes(x, window), nullptr));
    return reply ? reply->map_state : uint8_t(XCB_MAP_STATE_UNMAPPED);
}

bool isFrame(xcb_connection_t *x, xcb_window_t window)
{
    return property(x, window, XCB_ATOM_WM_CLASS).startsWith("i3-frame");
}

/// A bar that hides by itself takes its window out of the frame; one that is hidden with its frame knows
/// nothing of that.
bool isCoveredBar(xcb_connection_t *x, xcb_window_t window, const FrameAtoms &atoms)
{
    if (!isFrame(x, window))
        return false;
    const QList<xcb_window_t> children = windowsOf(x, window);
    return std::any_of(children.begin(), children.end(), [&](xcb_window_t child) {
        return hasAtom(x, child, atoms.windowType, atoms.dock)
            && mapState(x, child) == XCB_MAP_STATE_UNVIEWABLE;
    });
}

QRect areaOf(xcb_connection_t *x, xcb_window_t window)
{
    const auto reply = owned(xcb_get_geometry_reply(x, xcb_get_geometry(x, window), nullptr));
    return reply ? QRect(reply->x, reply->y, reply->width, reply->height) : QRect();
}

RootWindow::Kind kindOf(xcb_connection_t *x, xcb_window_t window, const FrameAtoms &atoms)
{
    if (!isFrame(x, window))
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
        if (mapState(connection, window) == XCB_MAP_STATE_VIEWABLE)
            windows.append({ window, areaOf(connection, window), kindOf(connection, window, atoms) });
        else if (isCoveredBar(connection, window, atoms))
            windows.append({ window, areaOf(connection, window), CoveredBar });
    }
    return windows;
}

QList<QRect> barsAmong(const QList<RootWindow> &windows)
{
    QList<QRect> areas;
    for (const RootWindow &window : windows) {
        if (window.kind == Bar || window.kind == CoveredBar)
            areas.append(window.area);
    }
    return areas;
}

namespace {

QList<RootWindow> windowsOn(const QRect &screen, const QList<RootWindow> &windows, quint32 own)
{
    QList<RootWindow> those;
    std::copy_if(windows.begin(), windows.end(), std::back_inserter(those),
        [&](const RootWindow &window) { return window.id == own || window.area.intersects(screen); });
    return those;
}

std::optional<StackPlace> placeBelowAll(const QList<RootWindow> &windows, quint32 own)
{
    for (const RootWindow &window : windows) {
        if (window.id == own)
            return std::nullopt;
        if (window.kind == Frame || window.kind == FullScreen)
            return StackPlace{ window.id, StackPlace::Side::Below };
    }
    return std::nullopt;
}

} // namespace

std::optional<StackPlace> placeAmongFrames(const QList<RootWindow> &windows, quint32 own, const QRect &screen)
{
    const QList<RootWindow> here = windowsOn(screen, windows, own);
    if (std::any_of(here.begin(), here.end(), [](const RootWindow &each) { return each.kind == CoveredBar; }))
        return placeBelowAll(here, own);
    std::optional<StackPlace> wanted;
    bool isThere = true;
    for (const RootWindow &window : here) {
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
