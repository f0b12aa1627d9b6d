#include "platform/XDisplay.h"

#include <QList>

#include <xcb/xcb.h>

#include <algorithm>
#include <future>
#include <thread>

namespace glimmet {
namespace {

XDisplay connectOnce()
{
    xcb_connection_t *connection = xcb_connect(nullptr, nullptr);
    const bool isConnected = xcb_connection_has_error(connection) == 0;
    xcb_disconnect(connection);
    return isConnected ? XDisplay::Answers : XDisplay::Unreachable;
}

} // namespace

XDisplay lookAtDisplay(std::chrono::milliseconds patience)
{
    if (qEnvironmentVariableIsEmpty("DISPLAY"))
        return XDisplay::Unset;
    // Neither the connecting nor the greeting has a time-out of its own.
    std::packaged_task<XDisplay()> look(connectOnce);
    std::future<XDisplay> display = look.get_future();
    std::thread(std::move(look)).detach();
    return display.wait_for(patience) == std::future_status::ready ? display.get() : XDisplay::Silent;
}

QByteArray platformFor(const QByteArray &wanted)
{
    const QByteArray x11 = "xcb";
    const QList<QByteArray> platforms = wanted.split(';');
    const auto found = std::find_if(platforms.begin(), platforms.end(),
        [&x11](const QByteArray &platform) { return platform.startsWith(x11 + ':'); });
    return found == platforms.end() ? x11 : *found;
}

} // namespace glimmet
