#include "tests/platform/keys/FakeServiceWorld.h"
#include "tests/support/Printing.h"
#include "tests/support/SecretServiceDaemon.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

#include <csignal>
#include <thread>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using std::chrono::milliseconds;
using Fault = FakeSecretService::Fault;
using World = FakeServiceWorld;

const QString account = u"polar_api_key"_s;
const LoadedKey unavailable = KeyUnavailable{};
constexpr auto everyFault = { Fault::Refuses, Fault::Hangs, Fault::Dies, Fault::Babbles };
/// More calls than any of the three operations makes, the opening of the session included.
constexpr int everyStep = 9;
/// The wait for a service that hangs is a real one. Less where nothing has to get through beside it.
constexpr CallLimits brief{ 3s, 200ms, 100ms };
constexpr CallLimits usual{ 3s, 1500ms, 300ms };

LoadedKey found(const QString &text)
{
    return ApiKey(text);
}

TEST(KeychainHelper, neverTakesAFailedLoadForAbsent)
{
    for (const Fault fault : everyFault) {
        for (int step = 0; step < everyStep; ++step) {
            World world(1, brief);
            world.service.failAfter(step, fault);

            const LoadedKey loaded = world.store->load(account);

            EXPECT_TRUE(loaded == found(u"old"_s) || loaded == unavailable) << step;
            EXPECT_TRUE(world.isInTime()) << step;
        }
    }
}

TEST(KeychainHelper, neverReportsASaveThatWasNotMade)
{
    for (const Fault fault : everyFault) {
        for (int step = 0; step < everyStep; ++step) {
            World world(1, brief);
            world.service.failAfter(step, fault);

            const bool isSaved = world.store->save(ApiKey(u"new"_s), account);

            EXPECT_TRUE(world.isInTime()) << step;
            EXPECT_TRUE(!isSaved || world.service.items().value(account) == "new") << step;
        }
    }
}

TEST(KeychainHelper, losesNoItemToAServiceThatLives)
{
    for (const Fault fault : { Fault::Refuses, Fault::Hangs, Fault::Babbles }) {
        for (int step = 0; step < everyStep; ++step) {
            World world(1, usual);
            world.service.failAfter(step, fault);

            world.store->save(ApiKey(u"new"_s), account);

            EXPECT_TRUE(waitFor([&] { return world.service.items().contains(account); })) << step;
        }
    }
}

TEST(KeychainHelper, neverReportsARemovalThatWasNotMade)
{
    for (const Fault fault : everyFault) {
        for (int step = 0; step < everyStep; ++step) {
            World world(1, brief);
            world.service.failAfter(step, fault);

            const bool isRemoved = world.store->remove(account);

            EXPECT_TRUE(world.isInTime()) << step;
            EXPECT_TRUE(!isRemoved || !world.service.items().contains(account)) << step;
        }
    }
}

TEST(KeychainHelper, triesAnAdditionOnceMoreOnAFreshConnection)
{
    for (const Fault fault : everyFault) {
        World world(2, usual);
        world.service.failAt(u"CreateItem"_s, fault);

        EXPECT_TRUE(world.store->save(ApiKey(u"new"_s), account));

        EXPECT_EQ(world.service.items().value(account), QByteArray("new"));
        const QStringList callers = world.service.callersOf(u"CreateItem"_s);
        ASSERT_EQ(callers.size(), 2);
        EXPECT_NE(callers[0], callers[1]);
        EXPECT_TRUE(world.isInTime());
    }
}

TEST(KeychainHelper, worksWithAServiceThatTakesAHundredMillisecondsACall)
{
    World world(1, usual);
    world.service.setDelay(100ms);

    EXPECT_EQ(world.store->load(account), found(u"old"_s));
    EXPECT_TRUE(world.store->save(ApiKey(u"new"_s), account));
    EXPECT_EQ(world.store->load(account), found(u"new"_s));
    EXPECT_TRUE(world.store->remove(account));
    EXPECT_EQ(world.store->load(account), LoadedKey(KeyAbsent{}));
}

TEST(KeychainHelper, hasTimeLeftForTheSecondTry)
{
    World world(2, usual);
    world.service.setDelay(20ms);
    world.service.failAt(u"CreateItem"_s, Fault::Hangs);

    EXPECT_TRUE(world.store->save(ApiKey(u"new"_s), account));

    EXPECT_EQ(world.service.callersOf(u"CreateItem"_s).size(), 2);
    EXPECT_TRUE(world.isInTime());
}

TEST(KeychainHelper, leavesItemsOfALockedCollectionAlone)
{
    World world;
    world.service.lockItems();

    EXPECT_FALSE(world.store->save(ApiKey(u"new"_s), account));
    EXPECT_FALSE(world.store->remove(account));
    EXPECT_EQ(world.store->load(account), unavailable);

    EXPECT_EQ(world.service.items().value(account), QByteArray("old"));
    EXPECT_FALSE(world.service.calls().contains(u"CreateItem"_s));
}

TEST(KeychainHelper, readsAgainAfterAFailure)
{
    for (const Fault fault : everyFault) {
        World world(2, usual);
        QSignalSpy readable(&*world.store, &KeyStore::becameReadable);
        world.service.failAt(u"GetSecret"_s, fault);
        EXPECT_EQ(world.store->load(account), unavailable);
        EXPECT_FALSE(world.store->save(ApiKey(), account));

        world.timers.advance(1s);
        ASSERT_TRUE(waitFor([&] { return readable.count() == 1; }));

        EXPECT_EQ(world.store->load(account), found(u"old"_s));
        EXPECT_TRUE(world.store->save(ApiKey(u"new"_s), account));
        EXPECT_EQ(world.service.items().value(account), QByteArray("new"));
    }
}

TEST(KeychainHelper, asksAServiceThatKeepsFailingLessAndLess)
{
    World world;
    int loads = 0;
    QObject::connect(&*world.store, &KeyStore::becameReadable, &*world.store, [&] {
        ++loads;
        world.service.failAt(u"GetSecret"_s, Fault::Refuses);
        world.store->load(account);
    });
    world.service.failAt(u"GetSecret"_s, Fault::Refuses);
    world.store->load(account);

    int looks = 0;
    for (const auto pause : { 1s, 2s, 4s, 8s, 16s, 32s, 60s, 60s }) {
        EXPECT_EQ(world.timers.running(), std::vector<milliseconds>{ pause });

        world.timers.advance(pause);
        ++looks;
        ASSERT_TRUE(waitFor([&] { return loads == looks; })) << looks;
    }
}

TEST(KeychainHelper, looksSoonAgainOnceTheServiceHasWorked)
{
    World world;
    QSignalSpy readable(&*world.store, &KeyStore::becameReadable);
    world.service.failAt(u"GetSecret"_s, Fault::Refuses);
    world.store->load(account);
    world.timers.advance(1s);
    ASSERT_TRUE(waitFor([&] { return readable.count() == 1; }));

    EXPECT_EQ(world.store->load(account), found(u"old"_s));
    world.service.failAt(u"GetSecret"_s, Fault::Refuses);
    world.store->load(account);

    EXPECT_EQ(world.timers.running(), std::vector<milliseconds>{ 1s });
}

TEST(KeychainHelper, readsAfterTheStartWhatThatHadNoTimeFor)
{
    World world;
    world.service.put(u"dodo_api_key"_s, "dodo");
    world.service.setDelay(100ms);
    KeychainHelper store(world.sessionBus, world.timers, world.steadyClock, { 600ms, 1500ms, 300ms });
    QSignalSpy readable(&store, &KeyStore::becameReadable);
    EXPECT_EQ(store.load(account), found(u"old"_s));
    EXPECT_EQ(store.load(u"dodo_api_key"_s), unavailable);
    QTest::qWait(0);

    world.timers.advance(1s);

    ASSERT_TRUE(waitFor([&] { return readable.count() == 1; }));
    EXPECT_EQ(store.load(u"dodo_api_key"_s), found(u"dodo"_s));
    EXPECT_TRUE(store.save(ApiKey(u"new"_s), account));
}

/// Time that passes by being looked at.
class CountedClock final : public SteadyClock {
public:
    std::chrono::nanoseconds elapsed() const override { return m_elapsed += 20ms; }

private:
    mutable std::chrono::nanoseconds m_elapsed{ 0 };
};

TEST(KeychainHelper, givesTheCallsOfTheStartUpThreeSecondsTogether)
{
    World world;
    const CountedClock clock;
    KeychainHelper store(world.sessionBus, world.timers, clock);

    int loads = 0;
    while (loads < 100 && store.load(account) == found(u"old"_s))
        ++loads;

    // Between the calls, where it does not count, it was looked at once each.
    const auto within = clock.elapsed() - loads * 20ms;
    EXPECT_GE(within, 2500ms);
    EXPECT_LE(within, 3300ms);
}

TEST(KeychainHelper, neverReportsASaveThatAKillUndid)
{
    for (int delay = 0; delay < 16; ++delay) {
        SecretServiceDaemon daemon;
        daemon.start();
        daemon.put(attributesOf(account), "old");
        ManualTimers timers;
        const SystemSteadyClock clock;
        SessionBus bus(timers);
        bus.open();
        KeychainHelper store(bus, timers, clock);
        std::thread killer([process = daemon.processId(), delay] {
            std::this_thread::sleep_for(std::chrono::microseconds(500 * delay));
            ::kill(process, SIGKILL);
        });

        const bool isSaved = store.save(ApiKey(u"new"_s), account);

        killer.join();
        daemon.kill();
        daemon.start();
        const QList<StoredItem> items = daemon.items(attributesOf(account));
        EXPECT_LE(items.size(), 1) << delay;
        EXPECT_TRUE(!isSaved || items.value(0).value == "new") << delay;
    }
}

} // namespace
} // namespace glimmet
