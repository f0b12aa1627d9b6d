#include "platform/FolderLock.h"

#include <QFile>
#include <QThread>

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace glimmet {
namespace {

// Short pauses: a program that writes without end frees the lock for moments only.
constexpr int attempts = 1000;
constexpr unsigned long pauseMilliseconds = 1;

bool lockWithin(int descriptor)
{
    for (int attempt = 0; attempt < attempts; ++attempt) {
        if (flock(descriptor, LOCK_EX | LOCK_NB) == 0)
            return true;
        // A file system without locks still has the atomic replacement of the file.
        if (errno != EWOULDBLOCK && errno != EINTR)
            return true;
        QThread::msleep(pauseMilliseconds);
    }
    return false;
}

} // namespace

FolderLock::FolderLock(const QString &folder)
    : m_descriptor(open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC))
    , m_held(m_descriptor >= 0 && lockWithin(m_descriptor))
{
}

FolderLock::~FolderLock()
{
    if (m_descriptor >= 0)
        close(m_descriptor);
}

} // namespace glimmet
