#include "platform/bus/SessionBus.h"
#include "platform/keys/KeychainHelper.h"
#include "tests/platform/keys/FakeSecretService.h"
#include "tests/support/Printing.h"
#include "tests/support/SecretServiceDaemon.h"

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <optional>
#include <thread>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;
using Fault = FakeSecretService::Fault;

const QString account = u"polar_api_key"_s;
const LoadedKey unavailable = KeyUnavailable{};
constexpr auto everyFault = { Fault::Refuses, Fault::Hangs, Fault::Dies, Fault::Babbles };
/// More calls than any of the three operations makes, the opening of the session included.
constexpr int everyStep = 9;

LoadedKey found(const QString &text)
{
    return ApiKey(text);
}

/// The program beside a service that fails when it is told to.
class World {
public:
    explicit World(int lives = 1)
        : service(bus, lives)
    {
        service.put(account, "old");
        sessionBus.open();
        store.emplace(sessionBus);
        QTest::qWait(0);
        clock.start();
    }
    /// Whether everything since the start took no longer than one call may.
    bool isInTime() const { return clock.elapsed() <= 600; }

    QTemporaryDir noServices;
    PrivateBus bus{ noServices.path() };
    FakeSecretService service;
    EventLoopTimers timers;
    SessionBus sessionBus{ timers };
    std::optional<KeychainHelper> store;
    QElapsedTimer clock;
};

TEST(KeychainHelper, neverTakesAFailedLoadForAbsent)
{
    for (const Fault fault : everyFault) {
        for (int step = 0; step < everyStep; ++step) {
            World world;
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
            World world;
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
            World world;
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
            World world;
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
        World world(2);
        world.service.failAt(u"CreateItem"_s, fault);

        EXPECT_TRUE(world.store->save(ApiKey(u"new"_s), account));

        EXPECT_EQ(world.service.items().value(account), QByteArray("new"));
        const QStringList callers = world.service.callersOf(u"CreateItem"_s);
        ASSERT_EQ(callers.size(), 2);
        EXPECT_NE(callers[0], callers[1]);
        EXPECT_TRUE(world.isInTime());
    }
}

TEST(KeychainHelper, hasTimeLeftForTheSecondTry)
{
    World world(2);
    world.service.setDelay(std::chrono::milliseconds(20));
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
        World world(2);
        QSignalSpy readable(&*world.store, &KeyStore::becameReadable);
        world.service.failAt(u"GetSecret"_s, fault);
        EXPECT_EQ(world.store->load(account), unavailable);
        EXPECT_FALSE(world.store->save(ApiKey(), account));

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

    // After one second, and after two more.
    EXPECT_FALSE(QTest::qWaitFor([&] { return loads == 3; }, 4500));
    EXPECT_EQ(loads, 2);
}

TEST(KeychainHelper, neverReportsASaveThatAKillUndid)
{
    for (int delay = 0; delay < 16; ++delay) {
        SecretServiceDaemon daemon;
        daemon.start();
        daemon.put(attributesOf(account), "old");
        EventLoopTimers timers;
        SessionBus bus{ timers };
        bus.open();
        KeychainHelper store(bus);
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

TEST(KeychainHelper, startsThePromptOfAnAddition)
{
    World world;
    world.service.failAt(u"CreateItem"_s, Fault::Prompts);

    EXPECT_TRUE(world.store->save(ApiKey(u"new"_s), account));

    EXPECT_EQ(world.service.items().value(account), QByteArray("new"));
    EXPECT_EQ(world.service.calls().count(u"CreateItem"_s), 1);
}

TEST(KeychainHelper, startsThePromptOfARemoval)
{
    World world;
    world.service.failAt(u"Delete"_s, Fault::Prompts);

    EXPECT_TRUE(world.store->remove(account));

    EXPECT_FALSE(world.service.items().contains(account));
}

TEST(KeychainHelper, leavesThePromptOfARemovalWithinASaveAlone)
{
    World world;
    world.service.failAt(u"Delete"_s, Fault::Prompts);

    EXPECT_TRUE(world.store->save(ApiKey(u"new"_s), account));

    EXPECT_EQ(world.service.items().value(account), QByteArray("new"));
    EXPECT_FALSE(world.service.calls().contains(u"Prompt"_s));
}

TEST(KeychainHelper, readsAtOnceWhereTheServiceUnlocksByItself)
{
    World world;
    world.service.lock();

    EXPECT_EQ(world.store->load(account), found(u"old"_s));

    EXPECT_EQ(world.service.calls().count(u"Unlock"_s), 1);
}

} // namespace
} // namespace glimmet
