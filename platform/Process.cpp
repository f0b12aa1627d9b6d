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
    // The limit does not hold where dumps go to a program (core_pattern with a pipe, core(5)): they are to
    // have no memory in them.
    const int filter = open("/proc/self/coredump_filter", O_WRONLY | O_CLOEXEC);
    if (filter < 0)
        return;
    [[maybe_unused]] const ssize_t written = write(filter, "0", 1);
    close(filter);
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
