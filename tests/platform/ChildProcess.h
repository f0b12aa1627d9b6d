#pragma once

#include <QtGlobal>

#include <csignal>
#include <functional>
#include <sys/wait.h>
#include <unistd.h>

namespace glimmet {

/// A copy of this process that does `work` and ends with its result; it is killed where it still runs at the
/// end.
class ChildProcess {
public:
    explicit ChildProcess(const std::function<int()> &work)
        : m_pid(fork())
    {
        if (m_pid == 0)
            _exit(work());
    }
    ~ChildProcess()
    {
        if (m_pid > 0)
            killNow();
    }
    Q_DISABLE_COPY_MOVE(ChildProcess)

    void killNow()
    {
        kill(m_pid, SIGKILL);
        wait();
    }
    /// The child's result; -1 where a signal ended it.
    int wait()
    {
        int status = 0;
        waitpid(m_pid, &status, 0);
        m_pid = -1;
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

private:
    pid_t m_pid;
};

/// A pipe; both ends close with it.
class Pipe {
public:
    Pipe()
    {
        if (pipe(m_ends) != 0)
            qFatal("no pipe could be made");
    }
    ~Pipe()
    {
        closeReader();
        closeWriter();
    }
    Q_DISABLE_COPY_MOVE(Pipe)

    int reader() const { return m_ends[0]; }
    int writer() const { return m_ends[1]; }
    void closeReader() { closeEnd(m_ends[0]); }
    void closeWriter() { closeEnd(m_ends[1]); }

private:
    static void closeEnd(int &end)
    {
        if (end >= 0)
            close(end);
        end = -1;
    }

    int m_ends[2]{ -1, -1 };
};

} // namespace glimmet
