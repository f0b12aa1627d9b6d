#include "platform/desktop/PressWatch.h"

#include "platform/desktop/X11.h"
#include "platform/desktop/Xcb.h"

#include <xcb/xinput.h>

#include <cstdlib>
#include <cstring>
#include <memory>
#include <string_view>

namespace glimmet {
namespace {

using namespace xcb;

void selectRawPresses(xcb_connection_t *x)
{
    // Raw events come to every client that asks, also during grabs of others, from version 2.1 on; those of
    // fingers from version 2.2 on.
    std::free(xcb_input_xi_query_version_reply(x, xcb_input_xi_query_version(x, 2, 2), nullptr));
    struct {
        xcb_input_event_mask_t head;
        uint32_t mask;
    } selection{ { XCB_INPUT_DEVICE_ALL_MASTER, 1 },
        XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_PRESS | XCB_INPUT_XI_EVENT_MASK_RAW_TOUCH_BEGIN };
    xcb_input_xi_select_events(x, rootWindow(x), 1, &selection.head);
    xcb_flush(x);
}

/// Has the server tell of the root window's properties and of the windows on it, and returns the name of the
/// property about the active window.
xcb_atom_t selectWindowNews(xcb_connection_t *x)
{
    constexpr std::string_view name = "_NET_ACTIVE_WINDOW";
    const uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    xcb_change_window_attributes(x, rootWindow(x), XCB_CW_EVENT_MASK, &events);
    const auto cookie = xcb_intern_atom(x, 0, name.size(), name.data());
    const std::unique_ptr<xcb_intern_atom_reply_t, decltype(&std::free)> reply(
        xcb_intern_atom_reply(x, cookie, nullptr), &std::free);
    return reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
}

bool isChangeOf(const xcb_generic_event_t *event, xcb_atom_t property)
{
    return (event->response_type & 0x7f) == XCB_PROPERTY_NOTIFY
        && reinterpret_cast<const xcb_property_notify_event_t *>(event)->atom == property;
}

bool isVanishing(const xcb_generic_event_t *event)
{
    const auto type = event->response_type & 0x7f;
    return type == XCB_UNMAP_NOTIFY || type == XCB_DESTROY_NOTIFY;
}

bool isWheel(const xcb_ge_generic_event_t *event)
{
    const auto button = reinterpret_cast<const xcb_input_raw_button_press_event_t *>(event)->detail;
    return button >= 4 && button <= 7;
}

bool isRawPress(const xcb_generic_event_t *event)
{
    if ((event->response_type & 0x7f) != XCB_GE_GENERIC)
        return false;
    const auto *extended = reinterpret_cast<const xcb_ge_generic_event_t *>(event);
    return extended->event_type == XCB_INPUT_RAW_TOUCH_BEGIN
        || (extended->event_type == XCB_INPUT_RAW_BUTTON_PRESS && !isWheel(extended));
}

} // namespace

PressWatch::PressWatch(QObject *parent)
    : QObject(parent)
    // A server that Qt does not use may take the connection and then never greet.
    , m_connection(X11::isMissing() ? nullptr : xcb_connect(nullptr, nullptr))
{
    if (m_connection == nullptr || xcb_connection_has_error(m_connection) != 0)
        return;
    selectRawPresses(m_connection);
    m_activeWindowAtom = selectWindowNews(m_connection);
    m_notifier =
        std::make_unique<QSocketNotifier>(xcb_get_file_descriptor(m_connection), QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, &PressWatch::readEvents);
}

PressWatch::~PressWatch()
{
    m_notifier.reset();
    if (m_connection != nullptr)
        xcb_disconnect(m_connection);
}

void PressWatch::catchUp()
{
    if (!m_notifier)
        return;
    // The answer comes behind every event of before.
    pointer();
    readEvents();
}

void PressWatch::readEvents()
{
    // Asking for the pointer may bring in further events, of which the socket then no longer tells.
    for (News news = takeEvents({}); news.wasPressed || news.wasActivated; news = takeEvents({})) {
        if (news.wasPressed) {
            const Pointer now = pointer();
            // A list from which something is chosen by the press goes at once, and may be gone by now.
            news = takeEvents(news);
            emit pressed(now.position, news.didWindowVanish ? Ground::Window : now.ground);
        }
        if (news.wasActivated)
            emit activated(activeWindow());
    }
    if (xcb_connection_has_error(m_connection) != 0)
        m_notifier->setEnabled(false);
}

PressWatch::News PressWatch::takeEvents(News news)
{
    using Event = std::unique_ptr<xcb_generic_event_t, decltype(&std::free)>;
    while (const Event event{ xcb_poll_for_event(m_connection), &std::free }) {
        news.wasPressed = news.wasPressed || isRawPress(event.get());
        news.didWindowVanish = news.didWindowVanish || (news.wasPressed && isVanishing(event.get()));
        news.wasActivated = news.wasActivated || isChangeOf(event.get(), m_activeWindowAtom);
    }
    return news;
}

quint32 PressWatch::activeWindow() const
{
    const auto cookie = xcb_get_property(
        m_connection, 0, rootWindow(m_connection), m_activeWindowAtom, XCB_ATOM_WINDOW, 0, 1);
    const std::unique_ptr<xcb_get_property_reply_t, decltype(&std::free)> reply(
        xcb_get_property_reply(m_connection, cookie, nullptr), &std::free);
    quint32 window = 0;
    if (reply && xcb_get_property_value_length(reply.get()) == sizeof(window))
        std::memcpy(&window, xcb_get_property_value(reply.get()), sizeof(window));
    return window;
}

PressWatch::Pointer PressWatch::pointer() const
{
    const std::unique_ptr<xcb_query_pointer_reply_t, decltype(&std::free)> reply(
        xcb_query_pointer_reply(
            m_connection, xcb_query_pointer(m_connection, rootWindow(m_connection)), nullptr),
        &std::free);
    if (!reply)
        return {};
    const bool isOverWindow = reply->child != XCB_WINDOW_NONE;
    return { QPoint(reply->root_x, reply->root_y), isOverWindow ? Ground::Window : Ground::Background };
}

} // namespace glimmet
