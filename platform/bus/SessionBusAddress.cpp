// Without Qt: the feed, which has none, asks here too.
#include "platform/bus/SessionBusAddress.h"

#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace glimmet {

std::string sessionBusAddress()
{
    const char *named = std::getenv("DBUS_SESSION_BUS_ADDRESS");
    if (named && *named)
        return named;
    const char *folder = std::getenv("XDG_RUNTIME_DIR");
    const std::string socket = std::string(folder ? folder : "") + "/bus";
    std::error_code error;
    return std::filesystem::exists(socket, error) ? "unix:path=" + socket : std::string();
}

} // namespace glimmet
