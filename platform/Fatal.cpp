#include "platform/Fatal.h"

#include <cstdio>
#include <cstdlib>

namespace glimmet {

void fatal(const char *reason) noexcept
{
    std::fprintf(stderr, "[glimmet] fatal: %s\n", reason);
    std::abort();
}

} // namespace glimmet
