#pragma once

namespace glimmet {

/// Keeps the process's memory, with the keys in it, out of the files that systems write when a program
/// crashes.
void forbidCoreDumps();

/// Gives closed standard streams an end that takes everything and gives nothing. Without it the next file or
/// socket that is opened would get their number, and with it whatever a library writes there. Call before
/// anything else.
void openClosedStandardStreams();

} // namespace glimmet
