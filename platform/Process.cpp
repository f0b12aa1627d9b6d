#include "platform/Process.h"

#include <initializer_list>

#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

namespace glimmet {

void forbidCoreDumps()
{
    rlimit limit{};
    getrlimit(RLIMIT_CORE, &limit);
    // The hard limit stays, for who wants one all the same.
    limit.rlim_cur = 0;
    setrlimit(RLIMIT_CORE, &limit);
}

void openClosedStandardStreams()
{
    for (const int descriptor : { STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO }) {
        // The lowest free number is taken, which is this one.
        if (fcntl(descriptor, F_GETFD) < 0 && open("/dev/null", O_RDWR) < 0)
            return;
    }
}

} // namespace glimmet
