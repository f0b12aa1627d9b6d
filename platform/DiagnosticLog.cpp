#include "platform/DiagnosticLog.h"

#include <QMutex>

#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

namespace glimmet {
namespace {

QMutex lineMutex;

bool isPipeOrTerminal(int descriptor)
{
    struct stat info { };
    return fstat(descriptor, &info) == 0 && (S_ISFIFO(info.st_mode) || S_ISCHR(info.st_mode));
}

/// The same pipe or terminal, opened anew: O_NONBLOCK on the inherited description would reach every other program
/// that shares it. -1 where that cannot be.
int openedAnew(int descriptor)
{
    char path[32];
    std::snprintf(path, sizeof path, "/proc/self/fd/%d", descriptor);
    return open(path, O_WRONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
}

ssize_t writeSome(int descriptor, const QByteArray &bytes)
{
    const ssize_t sent
        = send(descriptor, bytes.constData(), static_cast<size_t>(bytes.size()), MSG_DONTWAIT | MSG_NOSIGNAL);
    if (sent >= 0 || errno != ENOTSOCK)
        return sent;
    return write(descriptor, bytes.constData(), static_cast<size_t>(bytes.size()));
}

} // namespace

DiagnosticLog::DiagnosticLog(int descriptor)
    : m_descriptor(descriptor)
{
    std::signal(SIGPIPE, SIG_IGN);
    if (!isPipeOrTerminal(descriptor))
        return;
    const int own = openedAnew(descriptor);
    m_isOwn = own >= 0;
    if (m_isOwn)
        m_descriptor = own;
}

DiagnosticLog::~DiagnosticLog()
{
    if (m_isOwn)
        close(m_descriptor);
}

void DiagnosticLog::line(const QString &message)
{
    QByteArray bytes = "[glimmet] " + message.toUtf8();
    bytes.replace('\n', ' ').replace('\r', ' ').append('\n');
    const QMutexLocker lock(&lineMutex);
    // A line that a full pipe took only in part is ended before the next one begins.
    if (m_isInsideLine)
        bytes.prepend('\n');
    const ssize_t written = writeSome(m_descriptor, bytes);
    if (written > 0)
        m_isInsideLine = written < bytes.size();
}

} // namespace glimmet
