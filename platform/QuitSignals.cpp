#include "platform/QuitSignals.h"

#include <csignal>
#include <initializer_list>
#include <sys/eventfd.h>
#include <unistd.h>

namespace glimmet {
namespace {

int wakeUpDescriptor = -1;

/// Only what is safe in a signal handler: the event loop does the rest.
void wakeUp(int)
{
    const uint64_t one = 1;
    [[maybe_unused]] const ssize_t written = write(wakeUpDescriptor, &one, sizeof one);
}

int madeWakeUpDescriptor()
{
    wakeUpDescriptor = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    return wakeUpDescriptor;
}

/// A signal that the program was started to ignore (nohup) stays ignored.
void replaceUnlessIgnored(int signal, const struct sigaction &action)
{
    struct sigaction before{};
    sigaction(signal, nullptr, &before);
    if (before.sa_handler != SIG_IGN)
        sigaction(signal, &action, nullptr);
}

} // namespace

QuitSignals::QuitSignals(QObject *parent)
    : QObject(parent)
    , m_notifier(madeWakeUpDescriptor(), QSocketNotifier::Read)
{
    struct sigaction action{};
    action.sa_handler = wakeUp;
    action.sa_flags = SA_RESTART;
    for (const int signal : { SIGINT, SIGTERM, SIGHUP })
        replaceUnlessIgnored(signal, action);
    connect(&m_notifier, &QSocketNotifier::activated, this, [this] {
        m_notifier.setEnabled(false);
        emit received();
    });
}

} // namespace glimmet
