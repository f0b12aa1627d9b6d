#include "platform/DiagnosticLog.h"

#include <QMutex>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

namespace glimmet {
namespace {

QMutex lineMutex;

bool steersTerminal(char character)
{
    const bool isControl = static_cast<uchar>(character) < 0x20 || character == 0x7f;
    return isControl && character != '\n' && character != '\r' && character != '\t';
}

bool isPipeOrTerminal(int descriptor)
{
    struct stat info{};
    return fstat(descriptor, &info) == 0 && (S_ISFIFO(info.st_mode) || S_ISCHR(info.st_mode));
}

/// The same pipe or terminal, opened anew: O_NONBLOCK on the inherited description would reach every other
/// program that shares it. -1 where that cannot be.
int openedAnew(int descriptor)
{
    char path[32];
    std::snprintf(path, sizeof path, "/proc/self/fd/%d", descriptor);
    return open(path, O_WRONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
}

/// As much of `bytes` as goes out at once; -1 where nothing does.
ssize_t writeAtOnce(int descriptor, const QByteArray &bytes)
{
    const auto size = static_cast<size_t>(bytes.size());
    const ssize_t sent = send(descriptor, bytes.constData(), size, MSG_DONTWAIT | MSG_NOSIGNAL);
    if (sent >= 0 || errno != ENOTSOCK)
        return sent;
    return ::write(descriptor, bytes.constData(), size);
}

/// The same for a pipe or terminal that may block: one that is ready takes PIPE_BUF bytes without waiting.
ssize_t writeWhileReady(int descriptor, const QByteArray &bytes)
{
    ssize_t done = 0;
    while (done < bytes.size()) {
        pollfd ready{ descriptor, POLLOUT, 0 };
        if (poll(&ready, 1, 0) != 1 || (ready.revents & POLLOUT) == 0)
            break;
        const auto size = static_cast<size_t>(std::min<qsizetype>(bytes.size() - done, PIPE_BUF));
        const ssize_t written = ::write(descriptor, bytes.constData() + done, size);
        if (written <= 0)
            break;
        done += written;
    }
    return done;
}

} // namespace

DiagnosticLog::DiagnosticLog(int descriptor)
    : m_descriptor(descriptor)
{
    std::signal(SIGPIPE, SIG_IGN);
    // A closed descriptor's number goes to the next thing that is opened, which wants no diagnostics in it.
    if (fcntl(descriptor, F_GETFD) < 0)
        m_descriptor = -1;
    if (!isPipeOrTerminal(descriptor))
        return;
    // Where the pipe is another user's (sudo -u), it cannot be opened anew.
    const int own = openedAnew(descriptor);
    m_isOwn = own >= 0;
    m_mayBlock = !m_isOwn;
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
    plainLine(QStringLiteral("[glimmet] ") + message);
}

void DiagnosticLog::plainLine(const QString &message)
{
    QByteArray bytes = message.toUtf8();
    write(bytes.replace('\n', ' ').replace('\r', ' ').append('\n'));
}

void DiagnosticLog::text(const QString &title, const QString &text)
{
    write("[glimmet] " + title.toUtf8() + '\n' + text.toUtf8() + '\n');
}

void DiagnosticLog::write(QByteArray bytes)
{
    // What a server sends must not steer the terminal that shows it.
    std::replace_if(bytes.begin(), bytes.end(), steersTerminal, ' ');
    const QMutexLocker lock(&lineMutex);
    // A line that a full pipe took only in part is ended before the next one begins.
    if (m_isInsideLine)
        bytes.prepend('\n');
    const ssize_t written =
        m_mayBlock ? writeWhileReady(m_descriptor, bytes) : writeAtOnce(m_descriptor, bytes);
    if (written > 0)
        m_isInsideLine = written < bytes.size();
}

} // namespace glimmet
