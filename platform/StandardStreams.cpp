#include "platform/StandardStreams.h"

#include <initializer_list>

#include <fcntl.h>
#include <unistd.h>

namespace glimmet {

void openClosedStandardStreams()
{
    for (const int descriptor : { STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO }) {
        // The lowest free number is taken, which is this one.
        if (fcntl(descriptor, F_GETFD) < 0 && open("/dev/null", O_RDWR) < 0)
            return;
    }
}

} // namespace glimmet
