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

/// The user's keyring is locked when the program starts, and the desktop's prompt is on the screen.
class KeychainUnlock : public testing::Test {
protected:
    KeychainUnlock()
    {
        daemon.start(SecretServiceDaemon::Keyring::Unlocked, prompter.name());
        daemon.put(attributesOf(u"polar_api_key"_s), "abc");
        daemon.lock();
        bus.open();
    }

    SecretServiceDaemon daemon;
    MockPrompter prompter;
    ManualTimers timers;
    SystemSteadyClock clock;
    SessionBus bus{ timers };
};

TEST_F(KeychainUnlock, readsTheKeysOnceTheUserHasUnlockedThem)
{
    prompter.expectPassword(SecretServiceDaemon::password);
    KeychainHelper store(bus, timers, clock, patient);
    QSignalSpy readable(&store, &KeyStore::becameReadable);

    EXPECT_EQ(store.load(account), unavailable);
    EXPECT_FALSE(store.save(ApiKey(), account));

    ASSERT_TRUE(waitFor([&] { return readable.count() == 1; }));
    EXPECT_EQ(store.load(account), LoadedKey(ApiKey(u"abc"_s)));
}

TEST_F(KeychainUnlock, asksTheUserOnceInARun)
{
    prompter.expectCancel();
    KeychainHelper store(bus, timers, clock, patient);
    QSignalSpy readable(&store, &KeyStore::becameReadable);
    store.load(account);
    ASSERT_TRUE(waitFor([&] { return !prompter.isExpecting() && !prompter.isPrompting(); }));

    prompter.expectPassword(SecretServiceDaemon::password);
    for (const QString &each : accounts)
        EXPECT_EQ(store.load(each), unavailable);

    timers.advance(1min);
    settle(bus.connection());

    EXPECT_TRUE(prompter.isExpecting());
    EXPECT_TRUE(readable.isEmpty());
}

TEST_F(KeychainUnlock, leavesAPromptToTheUserWhenTheProgramEnds)
{
    prompter.setDelay(300);
    prompter.expectPassword(SecretServiceDaemon::password);
    {
        KeychainHelper store(bus, timers, clock, patient);
        store.load(account);
        ASSERT_TRUE(waitFor([&] { return prompter.isPrompting(); }));
    }

    EXPECT_TRUE(waitFor([&] { return !daemon.items(attributesOf(u"polar_api_key"_s)).isEmpty(); }));
}

} // namespace
} // namespace glimmet
