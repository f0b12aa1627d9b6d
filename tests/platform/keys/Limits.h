#pragma once

#include "platform/keys/CallBudget.h"

namespace glimmet {

/// Where nothing hangs: more than a busy machine uses up.
inline constexpr CallLimits patient{ std::chrono::minutes(1), std::chrono::minutes(1),
    std::chrono::minutes(1) };

} // namespace glimmet
