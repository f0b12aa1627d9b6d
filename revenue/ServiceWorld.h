#pragma once

#include "revenue/HistoryBounds.h"

#include <QByteArray>

namespace glimmet {

class Clock;
class DiagnosticLog;
class HttpClient;
class SteadyClock;
class UserRegion;

/// What a revenue service needs of the world around it. Everything outlives the service.
struct ServiceWorld {
    HttpClient &http;
    DiagnosticLog &log;
    const Clock &clock;
    const SteadyClock &steadyClock;
    const UserRegion &region;
    QByteArray endpoint; ///< an https origin
    HistoryBounds bounds = {}; ///< for those that read page by page
};

} // namespace glimmet
