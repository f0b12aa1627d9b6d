#include "platform/desktop/XDisplay.h"

#include <QDir>
#include <QLibraryInfo>
#include <QList>

#include <wayland-client-core.h>
#include <xcb/xcb.h>

#include <algorithm>
#include <future>
#include <memory>
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

bool isCompositorThere()
{
    // Without a name the library would try one of its own, and without the folder complain in its own words.
    const QByteArray name = qgetenv("WAYLAND_DISPLAY");
    if (name.isEmpty() || (!name.startsWith('/') && qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR")))
        return false;
    const std::unique_ptr<wl_display, decltype(&wl_display_disconnect)> display(
        wl_display_connect(nullptr), wl_display_disconnect);
    return display != nullptr;
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

Substitute substituteForX()
{
    if (!isCompositorThere())
        return Substitute::None;
    const QDir platforms(QLibraryInfo::path(QLibraryInfo::PluginsPath) + QStringLiteral("/platforms"));
    const bool isInstalled =
        !platforms.entryList({ QStringLiteral("libqwayland-generic*.so") }, QDir::Files).isEmpty();
    return isInstalled ? Substitute::Wayland : Substitute::NotInstalled;
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
