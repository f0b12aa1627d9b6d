#include "platform/DiagnosticLog.h"

#include <QByteArrayView>
#include <QMutex>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstddef>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace glimmet {
namespace {

QMutex lineMutex;

/// Where the journal takes lines (sd_journal_stream_fd(3)).
constexpr QByteArrayView journalSocket = "/run/systemd/journal/stdout";

/// Controls (C0, DEL and C1), also those that only move the cursor, such as tabs and carriage returns.
bool isControl(QChar character)
{
    return character < u' ' || (character >= u'\x7f' && character <= u'\x9f');
}

/// What turns the direction in which the characters around it are shown (Unicode's Bidi_Control).
bool turnsText(QChar character)
{
    return character == u'\u061c' || character == u'\u200e' || character == u'\u200f'
        || (character >= u'\u202a' && character <= u'\u202e')
        || (character >= u'\u2066' && character <= u'\u2069');
}

/// With a blank in the place of every character that would steer the terminal that shows it, but for `kept`.
QString harmless(QString text, QChar kept)
{
    const auto steersTerminal = [kept](QChar character) {
        return character != kept && (isControl(character) || turnsText(character));
    };
    std::replace_if(text.begin(), text.end(), steersTerminal, u' ');
    return text;
}

/// A tab stays: no more than a wide blank, it may be the user's own, in the name of a price.
QByteArray inOneLine(const QString &text)
{
    return harmless(text, u'\t').toUtf8();
}

/// Whether `descriptor` is what the service manager says that it connected to the journal (systemd.exec(5),
/// JOURNAL_STREAM). What a terminal or file took its place meanwhile is another device or inode.
bool isNamedAsJournal(int descriptor)
{
    struct stat info{};
    return fstat(descriptor, &info) == 0
        && qgetenv("JOURNAL_STREAM")
        == QByteArray::number(info.st_dev) + ':' + QByteArray::number(info.st_ino);
}

/// Whether the journal is at the other end. Shells of desktops give each program a stream of its own, of
/// which the variable, which they inherited, does not know.
bool leadsToJournal(int descriptor)
{
    sockaddr_un peer{};
    socklen_t size = sizeof peer;
    if (getpeername(descriptor, reinterpret_cast<sockaddr *>(&peer), &size) != 0
        || peer.sun_family != AF_UNIX)
        return false;
    const auto length = std::min(size_t(size) - offsetof(sockaddr_un, sun_path), sizeof peer.sun_path);
    return QByteArrayView(peer.sun_path, qsizetype(strnlen(peer.sun_path, length))) == journalSocket;
}

bool isJournal(int descriptor)
{
    return isNamedAsJournal(descriptor) || leadsToJournal(descriptor);
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
    , m_isJournal(isJournal(descriptor))
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
    write(inOneLine(message) + '\n');
}

void DiagnosticLog::privateLine(const QString &message)
{
    if (!m_isJournal)
        line(message);
}

void DiagnosticLog::privateText(const QString &title, const QString &text)
{
    if (m_isJournal)
        return;
    write("[glimmet] " + inOneLine(title) + '\n' + harmless(text, u'\n').toUtf8() + '\n');
}

void DiagnosticLog::write(QByteArray bytes)
{
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
