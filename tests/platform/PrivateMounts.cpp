#include "tests/platform/PrivateMounts.h"

#include "platform/Fatal.h"

#include <QFile>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

namespace glimmet {
namespace {

void writeTo(const char *path, const QByteArray &text)
{
    const int descriptor = open(path, O_WRONLY | O_CLOEXEC);
    if (descriptor < 0
        || write(descriptor, text.constData(), static_cast<size_t>(text.size())) != text.size())
        std::perror(path);
    close(descriptor);
}

bool enterAsRootOfAUserNamespace()
{
    const uid_t user = geteuid();
    const gid_t group = getegid();
    if (unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0)
        return false;
    writeTo("/proc/self/setgroups", "deny");
    writeTo("/proc/self/uid_map", "0 " + QByteArray::number(user) + " 1");
    writeTo("/proc/self/gid_map", "0 " + QByteArray::number(group) + " 1");
    return true;
}

} // namespace

void enterPrivateMounts()
{
    if (unshare(CLONE_NEWNS) != 0 && !enterAsRootOfAUserNamespace())
        return;
    // What is mounted from here on stays out of the machine's own view.
    mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr);
}

TinyDisk::TinyDisk(int bytes)
{
    const QByteArray options = "size=" + QByteArray::number(bytes);
    m_isMounted = mount("tmpfs", QFile::encodeName(path()).constData(), "tmpfs", 0, options.constData()) == 0;
    if (!m_isMounted)
        std::fprintf(
            stderr, "no tmpfs could be mounted (%s): this needs root or user namespaces\n", strerror(errno));
}

TinyDisk::~TinyDisk()
{
    if (m_isMounted)
        umount2(QFile::encodeName(path()).constData(), MNT_DETACH);
}

void TinyDisk::fillUp() const
{
    const int descriptor =
        open(QFile::encodeName(fillPath()).constData(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
    const QByteArray chunk(4096, 'x');
    for (qsizetype size = chunk.size(); size > 0;) {
        if (write(descriptor, chunk.constData(), static_cast<size_t>(size)) < 0)
            size = errno == ENOSPC ? size / 2 : 0;
    }
    close(descriptor);
}

void TinyDisk::removeFill() const
{
    if (!QFile::remove(fillPath()))
        fatal("the test's disk was not full");
}

void TinyDisk::makeReadOnly() const
{
    if (mount("none", QFile::encodeName(path()).constData(), nullptr, MS_REMOUNT | MS_RDONLY, nullptr) != 0)
        fatal("the test's disk could not be made read-only");
}

} // namespace glimmet
