#pragma once

namespace glimmet {

/// Ends the process at once with one clear line on standard error: the only way this program ends itself
/// because of a value that cannot be represented. `reason` is a fixed text, never user data.
[[noreturn]] void fatal(const char *reason) noexcept;

} // namespace glimmet
