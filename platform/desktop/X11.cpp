#include "platform/desktop/X11.h"

#include "platform/desktop/Frames.h"
#include "platform/desktop/Xcb.h"

#include <QGuiApplication>

#include <xcb/shape.h>
#include <xcb/xcb.h>

#include <array>
#include <cstring>
#include <vector>

namespace glimmet::X11 {
namespace {

using namespace xcb;

xcb_window_t idOf(const QWindow &window)
{
    return static_cast<xcb_window_t>(window.winId());
}

template <size_t Count>
void setProperty(xcb_connection_t *x, xcb_window_t window, const QByteArray &name, xcb_atom_t type,
    const std::array<uint32_t, Count> &values)
{
    xcb_change_property(x, XCB_PROP_MODE_REPLACE, window, atom(x, name), type, 32,
        static_cast<uint32_t>(Count), values.data());
}

/// The window by which the window manager tells of itself.
xcb_window_t windowManager(xcb_connection_t *x)
{
    const QByteArray value = property(x, rootWindow(x), atom(x, "_NET_SUPPORTING_WM_CHECK"));
    xcb_window_t window = XCB_WINDOW_NONE;
    if (value.size() == sizeof(window))
        std::memcpy(&window, value.constData(), sizeof(window));
    return window;
}

bool hasWindowManager(xcb_connection_t *x)
{
    return windowManager(x) != XCB_WINDOW_NONE;
}

QByteArray windowManagerName(xcb_connection_t *x)
{
    const xcb_window_t manager = windowManager(x);
    return manager == XCB_WINDOW_NONE ? QByteArray() : property(x, manager, atom(x, "_NET_WM_NAME"));
}

void makeUnmanaged(xcb_connection_t *x, xcb_window_t window, const QByteArray &type)
{
    const std::array<uint32_t, 1> isUnmanaged{ 1 };
    xcb_change_window_attributes(x, window, XCB_CW_OVERRIDE_REDIRECT, isUnmanaged.data());
    setProperty(x, window, "_NET_WM_WINDOW_TYPE", XCB_ATOM_ATOM, std::array{ atom(x, type) });
    xcb_flush(x);
}

bool isTimeOf(const xcb_generic_event_t *event, xcb_window_t window)
{
    return (event->response_type & 0x7f) == XCB_PROPERTY_NOTIFY
        && reinterpret_cast<const xcb_property_notify_event_t *>(event)->window == window;
}

/// The server's present time, as the event of a changed property tells it: window managers refuse the
/// keyboard to requests that seem older than the user's last action. A connection of its own leaves Qt's
/// events alone.
xcb_timestamp_t serverTime()
{
    xcb_connection_t *x = xcb_connect(nullptr, nullptr);
    xcb_timestamp_t time = XCB_CURRENT_TIME;
    if (xcb_connection_has_error(x) == 0) {
        const xcb_window_t window = xcb_generate_id(x);
        const std::array<uint32_t, 1> events{ XCB_EVENT_MASK_PROPERTY_CHANGE };
        xcb_create_window(x, XCB_COPY_FROM_PARENT, window, rootWindow(x), 0, 0, 1, 1, 0,
            XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, events.data());
        setProperty(x, window, "WM_CLASS", XCB_ATOM_CARDINAL, std::array<uint32_t, 1>{ 0 });
        xcb_flush(x);
        while (const auto event = owned(xcb_wait_for_event(x))) {
            if (!isTimeOf(event.get(), window))
                continue;
            time = reinterpret_cast<const xcb_property_notify_event_t *>(event.get())->time;
            break;
        }
    }
    xcb_disconnect(x);
    return time;
}

void askForActivation(xcb_connection_t *x, xcb_window_t window, xcb_timestamp_t time)
{
    constexpr uint32_t fromTheUser = 2; // "source indication: pager", a direct action of the user
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = atom(x, "_NET_ACTIVE_WINDOW");
    message.data.data32[0] = fromTheUser;
    message.data.data32[1] = time;
    xcb_send_event(x, 0, rootWindow(x),
        XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
        reinterpret_cast<const char *>(&message));
}

void grabKeyboard(xcb_connection_t *x, xcb_window_t window, xcb_timestamp_t time)
{
    // Where nothing has the focus, as after the last X window has gone, a grab is not told of as a change of
    // it.
    const auto focus = owned(xcb_get_input_focus_reply(x, xcb_get_input_focus(x), nullptr));
    if (focus && focus->focus == XCB_INPUT_FOCUS_NONE)
        xcb_set_input_focus(x, XCB_INPUT_FOCUS_POINTER_ROOT, XCB_INPUT_FOCUS_POINTER_ROOT, time);
    const auto cookie = xcb_grab_keyboard(x, 0, window, time, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    xcb_discard_reply(x, cookie.sequence);
}

} // namespace

void makeTopBar(const QWindow &window)
{
    xcb_connection_t *x = qtsConnection();
    if (x == nullptr)
        return;
    // Some give a bar the whole width, and sway ends itself where there is no workspace to put a window on.
    const QByteArray manager = windowManagerName(x);
    if (manager == "wlroots wm" || manager == "i3") {
        makeUnmanaged(x, idOf(window), "_NET_WM_WINDOW_TYPE_NOTIFICATION");
        return;
    }
    setProperty(x, idOf(window), "_NET_WM_WINDOW_TYPE", XCB_ATOM_ATOM,
        std::array{ atom(x, "_NET_WM_WINDOW_TYPE_DOCK") });
    xcb_flush(x);
}

bool isMissing()
{
    return QGuiApplication::platformName().startsWith(QLatin1String("wayland"));
}

bool isI3()
{
    xcb_connection_t *x = qtsConnection();
    return x != nullptr && windowManagerName(x) == "i3";
}

QList<QRect> bars()
{
    if (!isI3())
        return {};
    xcb_connection_t *x = qtsConnection();
    return barsAmong(rootWindows(x, frameAtoms(x)));
}

bool isWlroots()
{
    xcb_connection_t *x = qtsConnection();
    return x != nullptr && windowManagerName(x) == "wlroots wm";
}

void makeDropDown(const QWindow &window, Placing placing)
{
    xcb_connection_t *x = qtsConnection();
    if (x == nullptr)
        return;
    const xcb_window_t id = idOf(window);
    if (placing == Placing::Unmanaged) {
        // Of the kinds of windows only this one gets the keyboard then.
        makeUnmanaged(x, id, "_NET_WM_WINDOW_TYPE_NORMAL");
        return;
    }
    setProperty(
        x, id, "_NET_WM_WINDOW_TYPE", XCB_ATOM_ATOM, std::array{ atom(x, "_NET_WM_WINDOW_TYPE_UTILITY") });
    setProperty(x, id, "_NET_WM_STATE", XCB_ATOM_ATOM,
        std::array{ atom(x, "_NET_WM_STATE_SKIP_TASKBAR"), atom(x, "_NET_WM_STATE_SKIP_PAGER"),
            atom(x, "_NET_WM_STATE_ABOVE") });
    xcb_flush(x);
}

void giveFocus(const QWindow &window, Placing placing)
{
    xcb_connection_t *x = qtsConnection();
    if (x == nullptr)
        return;
    const xcb_timestamp_t time = serverTime();
    const xcb_window_t id = idOf(window);
    if (hasWindowManager(x))
        askForActivation(x, id, time);
    else
        xcb_set_input_focus(x, XCB_INPUT_FOCUS_PARENT, id, time);
    if (placing == Placing::Unmanaged)
        grabKeyboard(x, id, time);
    xcb_flush(x);
}

void releaseKeyboard()
{
    xcb_connection_t *x = qtsConnection();
    if (x == nullptr)
        return;
    xcb_ungrab_keyboard(x, XCB_CURRENT_TIME);
    xcb_flush(x);
}

void setShape(const QWindow &window, const QRegion &shape)
{
    xcb_connection_t *x = qtsConnection();
    // Asked for what it does not know, the library ends the connection.
    if (x == nullptr || xcb_get_extension_data(x, &xcb_shape_id)->present == 0)
        return;
    std::vector<xcb_rectangle_t> areas;
    for (const QRect &area : shape)
        areas.push_back({ static_cast<int16_t>(area.x()), static_cast<int16_t>(area.y()),
            static_cast<uint16_t>(area.width()), static_cast<uint16_t>(area.height()) });
    xcb_shape_rectangles(x, XCB_SHAPE_SO_SET, XCB_SHAPE_SK_BOUNDING, XCB_CLIP_ORDERING_UNSORTED, idOf(window),
        0, 0, static_cast<uint32_t>(areas.size()), areas.data());
    xcb_flush(x);
}

bool isCompositing()
{
    xcb_connection_t *x = qtsConnection();
    if (x == nullptr)
        return false;
    const auto reply = owned(
        xcb_get_selection_owner_reply(x, xcb_get_selection_owner(x, atom(x, "_NET_WM_CM_S0")), nullptr));
    return reply && reply->owner != XCB_WINDOW_NONE;
}

std::optional<QSize> rootSize()
{
    xcb_connection_t *x = qtsConnection();
    if (x == nullptr)
        return std::nullopt;
    const auto reply = owned(xcb_get_geometry_reply(x, xcb_get_geometry(x, rootWindow(x)), nullptr));
    if (!reply)
        return std::nullopt;
    return QSize(reply->width, reply->height);
}

QByteArray rootText(const QByteArray &name)
{
    xcb_connection_t *x = qtsConnection();
    return x == nullptr ? QByteArray() : property(x, rootWindow(x), atom(x, name));
}

std::optional<QSize> desktopSize()
{
    xcb_connection_t *x = qtsConnection();
    if (x == nullptr)
        return std::nullopt;
    const QByteArray value = property(x, rootWindow(x), atom(x, "_NET_DESKTOP_GEOMETRY"));
    std::array<uint32_t, 2> size{};
    if (value.size() != sizeof size)
        return std::nullopt;
    std::memcpy(size.data(), value.constData(), sizeof size);
    return QSize(static_cast<int>(size[0]), static_cast<int>(size[1]));
}

std::optional<QPoint> pointerPosition()
{
    xcb_connection_t *x = qtsConnection();
    if (x == nullptr)
        return std::nullopt;
    const auto reply = owned(xcb_query_pointer_reply(x, xcb_query_pointer(x, rootWindow(x)), nullptr));
    if (!reply)
        return std::nullopt;
    return QPoint(reply->root_x, reply->root_y);
}

} // namespace glimmet::X11
