#pragma once

#include <functional>

namespace glimmet {

/// How a play went.
enum class PlayEnd { Passed, Failed, Crashed };

/// Runs `play` in a process of its own, so that one that ends it ends nothing else. The caller has no other
/// threads. `play` tells whether it passed.
PlayEnd playInOwnProcess(const std::function<bool()> &play);

} // namespace glimmet
