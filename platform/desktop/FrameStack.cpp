#include "platform/desktop/FrameStack.h"

#include "platform/desktop/Xcb.h"

#include <array>
#include <chrono>

namespace glimmet {
namespace {

using namespace std::chrono_literals;
using namespace xcb;

/// i3 changes several windows at once.
constexpr auto settlingTime = 50ms;

void put(xcb_connection_t *x, xcb_window_t window, const StackPlace &place)
{
    const bool isAbove = place.side == StackPlace::Side::Above;
    const std::array<uint32_t, 2> values{ place.sibling,
        isAbove ? uint32_t(XCB_STACK_MODE_ABOVE) : uint32_t(XCB_STACK_MODE_BELOW) };
    xcb_configure_window(x, window, XCB_CONFIG_WINDOW_SIBLING | XCB_CONFIG_WINDOW_STACK_MODE, values.data());
    xcb_flush(x);
}

} // namespace

FrameStack::FrameStack(quint32 window, Timers &timers, QObject *parent)
    : QObject(parent)
    , m_connection(xcb_connect(nullptr, nullptr))
    , m_window(window)
    , m_lookTimer(timers, settlingTime, [this] { look(); })
{
    if (xcb_connection_has_error(m_connection) != 0)
        return;
    m_atoms = frameAtoms(m_connection);
    const uint32_t events = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    xcb_change_window_attributes(m_connection, rootWindow(m_connection), XCB_CW_EVENT_MASK, &events);
    xcb_flush(m_connection);
    m_notifier =
        std::make_unique<QSocketNotifier>(xcb_get_file_descriptor(m_connection), QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, &FrameStack::readEvents);
}

FrameStack::~FrameStack()
{
    m_notifier.reset();
    xcb_disconnect(m_connection);
}

void FrameStack::setScreen(const QRect &screen)
{
    if (screen == m_screen)
        return;
    m_screen = screen;
    if (m_notifier)
        look();
}

void FrameStack::readEvents()
{
    while (const auto event = owned(xcb_poll_for_event(m_connection))) {
        if (!m_lookTimer.isRunning())
            m_lookTimer.start();
    }
    if (xcb_connection_has_error(m_connection) != 0)
        m_notifier->setEnabled(false);
}

void FrameStack::look()
{
    const QList<RootWindow> windows = rootWindows(m_connection, m_atoms);
    if (const std::optional<StackPlace> place = placeAmongFrames(windows, m_window, m_screen))
        put(m_connection, m_window, *place);
    const QList<QRect> bars = barsAmong(windows);
    // What came in with the answers wakes nobody.
    readEvents();
    if (bars == m_bars)
        return;
    m_bars = bars;
    emit barsChanged();
}

} // namespace glimmet
