#pragma once

#include <string>

namespace glimmet {

/// The user's bus, as the environment names it or at its usual place; empty where there is none. Left to
/// itself the D-Bus library would launch a bus of its own, which no other program is on.
std::string sessionBusAddress();

} // namespace glimmet
