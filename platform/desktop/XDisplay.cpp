#include "platform/desktop/XDisplay.h"

#include <QList>

#include <xcb/xcb.h>

#include <algorithm>
#include <future>
#include <thread>
#include <utility>

namespace glimmet {
namespace {

XDisplayLook connectOnce()
{
    std::shared_ptr<xcb_connection_t> connection(xcb_connect(nullptr, nullptr), xcb_disconnect);
    if (xcb_connection_has_error(connection.get()) != 0)
        return { XDisplay::Unreachable, nullptr };
    return { XDisplay::Answers, std::move(connection) };
}

} // namespace

XDisplayLook lookAtDisplay(std::chrono::milliseconds patience)
{
    if (qEnvironmentVariableIsEmpty("DISPLAY"))
        return { XDisplay::Unset, nullptr };
    // Neither the connecting nor the greeting has a time-out of its own.
    std::packaged_task<XDisplayLook()> look(connectOnce);
    std::future<XDisplayLook> found = look.get_future();
    std::thread(std::move(look)).detach();
    if (found.wait_for(patience) != std::future_status::ready)
        return { XDisplay::Silent, nullptr };
    return found.get();
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
