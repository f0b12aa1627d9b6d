#include "bench/Measure.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QFile>

#include <csignal>
#include <ctime>
#include <sys/prctl.h>
#include <unistd.h>

namespace glimmet {
namespace {

double cpuMilliseconds(clockid_t clock)
{
    timespec time{};
    clock_gettime(clock, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

} // namespace

double processCpu()
{
    return cpuMilliseconds(CLOCK_PROCESS_CPUTIME_ID);
}

double threadCpu()
{
    return cpuMilliseconds(CLOCK_THREAD_CPUTIME_ID);
}

int privateDirty()
{
    QFile rollup(QStringLiteral("/proc/self/smaps_rollup"));
    if (!rollup.open(QIODevice::ReadOnly))
        return 0;
    const QByteArray text = rollup.readAll();
    const QByteArray name = "Private_Dirty:";
    return text.mid(text.indexOf(name) + name.size()).trimmed().split(' ').first().toInt();
}

QByteArray startServer(int argc, char *argv[], const HttpsServer::Handler &handler)
{
    int address[2];
    if (pipe(address) != 0)
        qFatal("no pipe");
    if (fork() == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        QCoreApplication application(argc, argv);
        HttpsServer server(handler);
        const QByteArray origin = server.origin();
        if (write(address[1], origin.constData(), static_cast<size_t>(origin.size())) < 0)
            qFatal("no request came for the server");
        QCoreApplication::exec();
    }
    char origin[64] = {};
    if (read(address[0], origin, sizeof origin - 1) < 0)
        qFatal("no server");
    return origin;
}

void waitUntil(const std::function<bool()> &condition)
{
    // QCoreApplication's own processEvents with a time limit would spin.
    while (!condition())
        QAbstractEventDispatcher::instance()->processEvents(QEventLoop::WaitForMoreEvents);
}

} // namespace glimmet
