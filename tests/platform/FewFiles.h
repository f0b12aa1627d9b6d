#pragma once

#include <QtGlobal>

#include <sys/resource.h>
#include <unistd.h>

namespace glimmet {

/// Allows the process only `count` more open files while it lives.
class FewFiles {
public:
    explicit FewFiles(int count)
    {
        getrlimit(RLIMIT_NOFILE, &m_before);
        const int next = dup(STDERR_FILENO);
        close(next);
        rlimit tight = m_before;
        tight.rlim_cur = static_cast<rlim_t>(next + count);
        setrlimit(RLIMIT_NOFILE, &tight);
    }
    ~FewFiles() { setrlimit(RLIMIT_NOFILE, &m_before); }
    Q_DISABLE_COPY_MOVE(FewFiles)

private:
    rlimit m_before{};
};

} // namespace glimmet
