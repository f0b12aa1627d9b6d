#include "platform/bus/SessionBus.h"
#include "platform/keys/KeychainHelper.h"
#include "tests/platform/keys/Accounts.h"
#include "tests/platform/keys/Limits.h"
#include "tests/platform/keys/MockPrompter.h"
#include "tests/support/ManualTimers.h"
#include "tests/support/SecretServiceDaemon.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

const QString account = u"polar_api_key"_s;
const LoadedKey unavailable = KeyUnavailable{};

/// The program, the desktop's prompts and a keyring service.
class KeychainWithPrompter : public testing::Test {
protected:
    SecretServiceDaemon daemon;
    MockPrompter prompter;
    ManualTimers timers;
    SystemSteadyClock clock;
    SessionBus bus{ timers };
    KeychainHelper store{ bus, timers, clock, patient };
    QSignalSpy readable{ &store, &KeyStore::becameReadable };
    QSignalSpy refusals{ &store, &KeyStore::refused };
};

/// The user's keyring is locked when the program starts.
class KeychainUnlock : public KeychainWithPrompter {
protected:
    KeychainUnlock()
    {
        daemon.start(SecretServiceDaemon::Keyring::Unlocked, prompter.name());
        daemon.put(attributesOf(u"polar_api_key"_s), "abc");
        daemon.lock();
        bus.open();
    }
};

TEST_F(KeychainUnlock, asksTheUserForNothingByItself)
{
    prompter.expectPassword(SecretServiceDaemon::password);
    for (const QString &each : accounts) {
        EXPECT_EQ(store.load(each), unavailable);
        EXPECT_EQ(store.obstacle(), KeyObstacle::Locked);
        EXPECT_FALSE(store.save(ApiKey(), each));
    }

    timers.advance(1min);
    settle(bus.connection());

    EXPECT_TRUE(prompter.isExpecting());
    EXPECT_TRUE(readable.isEmpty());
}

TEST_F(KeychainUnlock, readsTheKeysOnceTheUserHasUnlockedThem)
{
    prompter.expectPassword(SecretServiceDaemon::password);
    EXPECT_EQ(store.load(account), unavailable);
    EXPECT_FALSE(store.save(ApiKey(), account));

    store.ask(KeyStore::Wish::Unlocking);

    ASSERT_TRUE(waitFor([&] { return readable.count() == 1; }));
    EXPECT_EQ(store.load(account), LoadedKey(ApiKey(u"abc"_s)));
    EXPECT_EQ(store.obstacle(), KeyObstacle::None);
    EXPECT_TRUE(refusals.isEmpty());
}

TEST_F(KeychainUnlock, isAskingFromTheDialogsBeginningToItsEnd)
{
    QSignalSpy changes(&store, &KeyStore::isAskingChanged);
    prompter.setDelay(300);
    prompter.expectCancel();
    store.load(account);
    EXPECT_FALSE(store.isAsking());

    store.ask(KeyStore::Wish::Unlocking);
    EXPECT_TRUE(store.isAsking());
    EXPECT_EQ(changes.count(), 1);
    store.ask(KeyStore::Wish::Unlocking);

    ASSERT_TRUE(waitFor([&] { return changes.count() == 2; }));
    EXPECT_FALSE(store.isAsking());
    EXPECT_EQ(refusals.count(), 1);
    EXPECT_TRUE(readable.isEmpty());
}

TEST_F(KeychainUnlock, isAskingNoMoreOnceTheServiceIsGone)
{
    prompter.setDelay(60'000);
    prompter.expectCancel();
    store.load(account);
    store.ask(KeyStore::Wish::Unlocking);
    ASSERT_TRUE(waitFor([&] { return prompter.isPrompting(); }));

    daemon.kill();

    EXPECT_TRUE(waitFor([&] { return !store.isAsking(); }));
}

TEST_F(KeychainUnlock, asksForNothingWhereNothingIsClosed)
{
    daemon.unlock();
    store.load(account);

    store.ask(KeyStore::Wish::UnlockingOrMaking);

    EXPECT_FALSE(store.isAsking());
    EXPECT_EQ(store.load(account), LoadedKey(ApiKey(u"abc"_s)));
}

TEST_F(KeychainUnlock, tellsThatAKeyringWasLockedDuringTheRun)
{
    daemon.unlock();
    store.load(account);
    daemon.lock();

    EXPECT_FALSE(store.save(ApiKey(u"def"_s), account, KeyStore::Cause::User));
    EXPECT_EQ(store.obstacle(), KeyObstacle::Locked);

    prompter.expectPassword(SecretServiceDaemon::password);
    store.ask(KeyStore::Wish::Unlocking);
    ASSERT_TRUE(waitFor([&] { return readable.count() == 1; }));
    EXPECT_TRUE(store.save(ApiKey(u"def"_s), account, KeyStore::Cause::User));
}

TEST_F(KeychainUnlock, leavesAPromptToTheUserWhenTheProgramEnds)
{
    prompter.setDelay(300);
    prompter.expectPassword(SecretServiceDaemon::password);
    {
        KeychainHelper brief(bus, timers, clock, patient);
        brief.load(account);
        brief.ask(KeyStore::Wish::Unlocking);
        ASSERT_TRUE(waitFor([&] { return prompter.isPrompting(); }));
    }

    EXPECT_TRUE(waitFor([&] { return !daemon.items(attributesOf(u"polar_api_key"_s)).isEmpty(); }));
}

/// There is a service, but the user has no keyring yet.
class KeychainMaking : public KeychainWithPrompter {
protected:
    KeychainMaking()
    {
        daemon.start(SecretServiceDaemon::Keyring::None, prompter.name());
        bus.open();
    }
};

TEST_F(KeychainMaking, isMadeByTheServicesOwnDialog)
{
    prompter.expectPassword(SecretServiceDaemon::password);
    EXPECT_EQ(store.load(account), unavailable);
    EXPECT_EQ(store.obstacle(), KeyObstacle::NoCollection);

    store.ask(KeyStore::Wish::UnlockingOrMaking);

    ASSERT_TRUE(waitFor([&] { return readable.count() == 1; }));
    EXPECT_EQ(store.load(account), LoadedKey(KeyAbsent{}));
    EXPECT_TRUE(store.save(ApiKey(u"abc"_s), account, KeyStore::Cause::User));
    EXPECT_EQ(daemon.items(attributesOf(account)).value(0).value, QByteArray("abc"));
}

TEST_F(KeychainMaking, isNotMadeWhereTheUserDoesNotAgree)
{
    prompter.expectCancel();
    store.load(account);

    store.ask(KeyStore::Wish::UnlockingOrMaking);

    ASSERT_TRUE(waitFor([&] { return refusals.count() == 1; }));
    EXPECT_FALSE(store.isAsking());
    EXPECT_EQ(store.load(account), unavailable);
}

TEST_F(KeychainMaking, isNotMadeOnlyToUnlock)
{
    prompter.expectPassword(SecretServiceDaemon::password);
    store.load(account);

    store.ask(KeyStore::Wish::Unlocking);
    settle(bus.connection());

    EXPECT_TRUE(prompter.isExpecting());
    EXPECT_FALSE(store.isAsking());
}

} // namespace
} // namespace glimmet
