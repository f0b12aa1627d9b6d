#pragma once

#include <functional>

namespace glimmet {

/// Lets events happen until `isOver`; false where that takes longer than half a minute.
bool waitUntil(const std::function<bool()> &isOver);

} // namespace glimmet
