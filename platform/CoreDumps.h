#pragma once

namespace glimmet {

/// Keeps the process's memory, with the keys in it, out of the files that systems write when a program
/// crashes.
void forbidCoreDumps();

} // namespace glimmet
