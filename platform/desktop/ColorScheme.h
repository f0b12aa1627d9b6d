#pragma once

namespace glimmet {

/// Whether the desktop wants light or dark surfaces.
enum class ColorScheme { Light, Dark };

} // namespace glimmet
