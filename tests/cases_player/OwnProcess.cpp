#include "tests/cases_player/OwnProcess.h"

#include <cstdio>
#include <cstdlib>
#include <sys/wait.h>
#include <unistd.h>

namespace glimmet {

PlayEnd playInOwnProcess(const std::function<bool()> &play)
{
    std::fflush(stdout);
    const pid_t child = fork();
    if (child == 0) {
        const bool hasPassed = play();
        std::fflush(stdout);
        // What libraries do at the end of a process may run into threads of theirs that still live.
        _exit(hasPassed ? EXIT_SUCCESS : EXIT_FAILURE);
    }
    int status = 0;
    if (child < 0 || waitpid(child, &status, 0) != child || !WIFEXITED(status))
        return PlayEnd::Crashed;
    return WEXITSTATUS(status) == EXIT_SUCCESS ? PlayEnd::Passed : PlayEnd::Failed;
}

} // namespace glimmet
