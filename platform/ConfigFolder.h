#pragma once

#include <QString>

namespace glimmet {

/// Where the user's settings are (https://specifications.freedesktop.org/basedir-spec/latest/): what
/// XDG_CONFIG_HOME says, but for a relative path, which is to be ignored, and which Qt would take from the
/// folder that the program happens to be started in.
QString configFolder();

} // namespace glimmet
