// Measures what the keys cost in a real gnome-keyring: a start-up, and how long an update leaves an item
// without any copy, which is when a kill would lose it.

#include "bench/Measure.h"
#include "platform/RepeatingTimer.h"
#include "platform/SteadyClock.h"
#include "platform/bus/SessionBus.h"
#include "platform/keys/KeychainHelper.h"
#include "revenue/RevenueChoices.h"
#include "tests/support/SecretServiceDaemon.h"

#include <QCoreApplication>
#include <QElapsedTimer>

#include <algorithm>
#include <cstdio>
#include <vector>

using namespace glimmet;
using namespace std::chrono_literals;

namespace {

constexpr int rounds = 200;
const SystemSteadyClock steadyClock;

QString value()
{
    return QStringLiteral("sk_test_").leftJustified(107, u'x');
}

/// Milliseconds: the median, and the longest of a hundred.
void report(const char *what, std::vector<double> times)
{
    std::sort(times.begin(), times.end());
    std::printf("%-42s median %.2f ms, 99 of 100 within %.2f ms, longest %.2f ms\n", what,
        times[times.size() / 2], times[times.size() * 99 / 100], times.back());
}

template <typename Work> double duration(Work work)
{
    QElapsedTimer elapsed;
    elapsed.start();
    work();
    return double(elapsed.nsecsElapsed()) / 1e6;
}

void loadAll(KeyStore &store)
{
    for (const auto &[key, name] : rawValues<KeychainKey>)
        store.load(name.toString());
}

void saveAll(KeyStore &store)
{
    for (const auto &[key, name] : rawValues<KeychainKey>)
        store.save(ApiKey(value()), name.toString());
}

void measureStartUp(const SessionBus &bus, Timers &timers)
{
    std::vector<double> loads;
    std::vector<double> saves;
    const double cpu = threadCpu();
    for (int i = 0; i < rounds; ++i) {
        KeychainHelper store(bus, timers, steadyClock);
        loads.push_back(duration([&] { loadAll(store); }));
        saves.push_back(duration([&] { saveAll(store); }));
    }
    report("seven loads, the connection included", loads);
    report("the same seven, written back", saves);
    std::printf("main thread: %.2f ms of CPU for both\n", (threadCpu() - cpu) / rounds);
}

/// From the answer to the removal to the answer to the addition.
void measureTimeWithoutACopy(const SessionBus &bus)
{
    SecretServiceLink link(bus);
    SecretService service(link);
    const SecretAttributes attributes = attributesOf(accountName(KeychainKey::StripeAPIKey));
    std::vector<double> removals;
    std::vector<double> additions;
    for (int i = 0; i < rounds; ++i) {
        CallBudget budget(steadyClock, { 3s, 300ms, 300ms });
        CallBudget::Call call(budget);
        const auto matches = service.find(attributes, call);
        removals.push_back(duration([&] { service.remove(matches->unlocked.first(), call); }));
        additions.push_back(duration(
            [&] { service.add(attributes, QStringLiteral("glimmet"), value().toUtf8(), call, 300ms); }));
    }
    report("a removal", removals);
    report("the addition after it: no copy is stored", additions);
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    SecretServiceDaemon daemon;
    daemon.start();
    EventLoopTimers timers;
    SessionBus bus(timers);
    bus.open();
    const int before = privateDirty();
    KeychainHelper first(bus, timers, steadyClock);
    saveAll(first);
    loadAll(first);
    std::printf("the store: %d kB\n", privateDirty() - before);

    measureStartUp(bus, timers);
    measureTimeWithoutACopy(bus);
    return 0;
}
