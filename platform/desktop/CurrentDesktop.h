#pragma once

namespace glimmet {

/// Whether this is the desktop of that name, in capitals, or one made of it: XDG_CURRENT_DESKTOP has it in
/// its list (https://specifications.freedesktop.org/desktop-entry-spec/latest/recognized-keys.html).
bool isDesktop(const char *name);

} // namespace glimmet
