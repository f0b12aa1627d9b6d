#pragma once

#include "tests/support/HttpsServer.h"

#include <functional>

/// What the programs that measure the network have in common.
namespace glimmet {

/// Milliseconds of CPU that the process has spent.
double processCpu();
/// The same for the calling thread.
double threadCpu();
/// Kilobytes of memory that are the process's own.
int privateDirty();

/// Runs a server in a process of its own, so that its work is not counted, and returns its origin. Before the
/// application is made.
QByteArray startServer(int argc, char *argv[], const HttpsServer::Handler &handler);

/// Handles events until `condition` holds, asleep in between.
void waitUntil(const std::function<bool()> &condition);

} // namespace glimmet
