#include "platform/CoreDumps.h"

#include <sys/resource.h>

namespace glimmet {

void forbidCoreDumps()
{
    rlimit limit{};
    getrlimit(RLIMIT_CORE, &limit);
    // The hard limit stays, for who wants one all the same.
    limit.rlim_cur = 0;
    setrlimit(RLIMIT_CORE, &limit);
}

} // namespace glimmet
