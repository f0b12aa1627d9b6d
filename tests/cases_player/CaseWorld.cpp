#include "tests/cases_player/CaseWorld.h"

namespace glimmet {
namespace {

HttpSettings settingsFor(const AnswerCase &played)
{
    HttpSettings settings;
    settings.authorities = HttpsServer::authority();
    // Long enough for a slow machine to answer the other pages, short enough to be waited for.
    if (played.hasSilentPage())
        settings.idleTimeout = std::chrono::seconds(2);
    return settings;
}

} // namespace

CaseWorld::CaseWorld(const AnswerCase &played)
    : region("en_US", played.zone)
    , http(settingsFor(played))
{
    clock.set(played.now);
}

} // namespace glimmet
