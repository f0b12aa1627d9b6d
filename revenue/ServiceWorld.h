#pragma once

#include <QByteArray>

namespace glimmet {

class Clock;
class DiagnosticLog;
class HttpClient;
class UserRegion;

/// What a revenue service needs of the world around it. Everything outlives the service.
struct ServiceWorld {
    HttpClient &http;
    DiagnosticLog &log;
    const Clock &clock;
    const UserRegion &region;
    QByteArray endpoint; ///< an https origin
};

} // namespace glimmet
