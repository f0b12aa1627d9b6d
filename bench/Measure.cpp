#include "bench/Measure.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QFile>

#include <csignal>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <unistd.h>

namespace glimmet {
namespace {

double cpuMilliseconds(int who)
{
    rusage usage{};
    getrusage(who, &usage);
    const auto milliseconds = [](const timeval &time) {
        return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_usec) / 1e3;
    };
    return milliseconds(usage.ru_utime) + milliseconds(usage.ru_stime);
}

} // namespace

double processCpu()
{
    return cpuMilliseconds(RUSAGE_SELF);
}

double threadCpu()
{
    return cpuMilliseconds(RUSAGE_THREAD);
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
