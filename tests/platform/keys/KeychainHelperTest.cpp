#include "platform/keys/KeychainHelper.h"
#include "platform/bus/SessionBus.h"
#include "tests/platform/keys/Accounts.h"
#include "tests/platform/keys/Limits.h"
#include "tests/support/ManualTimers.h"
#include "tests/support/Printing.h"
#include "tests/support/SecretServiceDaemon.h"

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

#include <chrono>
#include <optional>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using std::chrono::milliseconds;

const QString otherAccount = u"dodo_api_key"_s;
const QString account = u"polar_api_key"_s;
const LoadedKey absent = KeyAbsent{};
const LoadedKey unavailable = KeyUnavailable{};

/// For a busy machine.
constexpr milliseconds slack{ 250 };
constexpr milliseconds laterBudget{ 1500 };
constexpr milliseconds questionLimit{ 300 };
/// Shorter than the usual one, since the wait for a service that hangs is a real one.
constexpr milliseconds startUpBudget{ 600 };
constexpr CallLimits limits{ startUpBudget, laterBudget, questionLimit };

LoadedKey found(const QString &text)
{
    return ApiKey(text);
}

/// How long `work` keeps its caller waiting.
template <typename Work> milliseconds duration(Work work)
{
    QElapsedTimer elapsed;
    elapsed.start();
    work();
    return milliseconds(elapsed.elapsed());
}

class KeychainOnDaemon : public testing::Test {
protected:
    /// The program, started on the bus as it is now.
    void launch(CallLimits callLimits = patient)
    {
        bus.open();
        store.emplace(bus, timers, clock, callLimits);
        readable.emplace(&*store, &KeyStore::becameReadable);
    }
    /// From here on each call has a budget of its own.
    static void endStartUp() { QTest::qWait(0); }
    bool becomesReadable()
    {
        return waitFor([this] { return readable->count() == 1; });
    }
    /// Also after the store has looked by itself.
    bool staysUnreadable()
    {
        timers.advance(1s);
        settle(bus.connection());
        return readable->isEmpty();
    }

    SecretServiceDaemon daemon;
    ManualTimers timers;
    SystemSteadyClock clock;
    SessionBus bus{ timers };
    std::optional<KeychainHelper> store;
    std::optional<QSignalSpy> readable;
};

TEST_F(KeychainOnDaemon, writesItemsThatOtherToolsCanRead)
{
    daemon.start();
    launch();

    ASSERT_TRUE(store->save(ApiKey(u"polar_oat_⚡"_s), account));

    const QList<StoredItem> items = daemon.items(attributesOf(account));
    ASSERT_EQ(items.size(), 1);
    EXPECT_EQ(items[0].label, u"glimmet polar_api_key"_s);
    EXPECT_EQ(items[0].value, QByteArray("polar_oat_⚡"));
    EXPECT_EQ(items[0].contentType, u"text/plain"_s);
    SecretAttributes attributes = items[0].attributes;
    EXPECT_EQ(attributes.take(u"xdg:schema"_s), u"me.kerno.glimmet"_s);
    EXPECT_EQ(attributes, attributesOf(account));
}

TEST_F(KeychainOnDaemon, findsItemsByServiceAndAccountWhateverElseTheySay)
{
    daemon.start();
    SecretAttributes attributes = attributesOf(account);
    attributes.insert(u"xdg:schema"_s, u"org.freedesktop.Secret.Generic"_s);
    attributes.insert(u"colour"_s, u"blue"_s);
    daemon.put(attributes, "abc");
    daemon.put({ { u"service"_s, u"me.kerno.glimmet"_s } }, "no account");
    daemon.put({ { u"service"_s, u"another"_s }, { u"account"_s, u"dodo_api_key"_s } }, "not ours");
    launch();

    EXPECT_EQ(store->load(account), found(u"abc"_s));
    EXPECT_EQ(store->load(otherAccount), absent);
}

TEST_F(KeychainOnDaemon, leavesOneItemWhereThereWereSeveral)
{
    daemon.start();
    for (const QString &colour : { u"blue"_s, u"red"_s }) {
        SecretAttributes attributes = attributesOf(account);
        attributes.insert(u"colour"_s, colour);
        daemon.put(attributes, "abc");
    }
    launch();

    EXPECT_TRUE(store->save(ApiKey(u"def"_s), account));

    ASSERT_EQ(daemon.items(attributesOf(account)).size(), 1);
    EXPECT_EQ(daemon.items(attributesOf(account))[0].value, QByteArray("def"));
}

TEST_F(KeychainOnDaemon, hasAllCallsOfTheStartUpShareOneBudget)
{
    daemon.start();
    launch({ startUpBudget, laterBudget, startUpBudget });
    daemon.halt();

    const milliseconds waited = duration([this] {
        for (const QString &each : accounts)
            EXPECT_EQ(store->load(each), unavailable);
        for (const QString &each : accounts)
            EXPECT_FALSE(store->save(ApiKey(), each));
    });

    EXPECT_GE(waited, startUpBudget - slack);
    EXPECT_LE(waited, startUpBudget + slack);
}

TEST_F(KeychainOnDaemon, givesAQuestionThreeHundredMilliseconds)
{
    daemon.start();
    launch(limits);
    endStartUp();
    daemon.halt();

    const milliseconds waited = duration([this] { EXPECT_FALSE(store->save(ApiKey(u"abc"_s), account)); });

    EXPECT_GE(waited, questionLimit - slack);
    EXPECT_LE(waited, questionLimit + slack);
}

TEST_F(KeychainOnDaemon, waitsNoMoreForAServiceThatHangs)
{
    daemon.start();
    launch(limits);
    endStartUp();
    daemon.halt();
    store->load(account);

    const milliseconds waited = duration([this] {
        for (int i = 0; i < 100; ++i)
            EXPECT_EQ(store->load(account), unavailable);
    });

    EXPECT_LE(waited, questionLimit);
}

TEST_F(KeychainOnDaemon, readsOnceAServiceThatHungGoesOn)
{
    daemon.start();
    daemon.put(attributesOf(account), "abc");
    launch(limits);
    endStartUp();
    daemon.halt();
    store->load(account);

    EXPECT_TRUE(staysUnreadable());
    daemon.goOn();

    ASSERT_TRUE(becomesReadable());
    EXPECT_EQ(store->load(account), found(u"abc"_s));
}

TEST_F(KeychainOnDaemon, readsOnceAServiceThatWasKilledIsBack)
{
    daemon.start();
    daemon.put(attributesOf(account), "abc");
    launch();
    EXPECT_EQ(store->load(account), found(u"abc"_s));
    daemon.kill();

    EXPECT_EQ(store->load(account), unavailable);
    EXPECT_FALSE(store->save(ApiKey(u"def"_s), account));
    EXPECT_TRUE(staysUnreadable());
    daemon.start();

    ASSERT_TRUE(becomesReadable());
    EXPECT_EQ(store->load(account), found(u"abc"_s));
}

TEST_F(KeychainOnDaemon, followsAServiceThatWasReplacedUnheard)
{
    daemon.start();
    daemon.put(attributesOf(account), "abc");
    launch();
    store->load(account);
    daemon.kill();
    daemon.start();

    EXPECT_EQ(store->load(account), found(u"abc"_s));
    EXPECT_TRUE(store->save(ApiKey(u"def"_s), account));
    EXPECT_EQ(store->load(account), found(u"def"_s));
}

TEST_F(KeychainOnDaemon, isUnavailableWithoutAService)
{
    launch();

    const milliseconds waited = duration([this] {
        EXPECT_EQ(store->load(account), unavailable);
        EXPECT_FALSE(store->save(ApiKey(u"abc"_s), otherAccount));
        EXPECT_FALSE(store->remove(otherAccount));
    });

    EXPECT_LE(waited, slack);
    daemon.start();
    EXPECT_TRUE(becomesReadable());
    EXPECT_EQ(store->load(account), absent);
}

TEST_F(KeychainOnDaemon, makesNoCollectionWhereThereIsNone)
{
    daemon.start(SecretServiceDaemon::Keyring::None);
    launch();

    EXPECT_EQ(store->load(account), unavailable);
    EXPECT_FALSE(store->save(ApiKey(u"abc"_s), otherAccount));
    EXPECT_TRUE(staysUnreadable());
    daemon.makeDefaultCollection();

    ASSERT_TRUE(becomesReadable());
    EXPECT_EQ(store->load(account), absent);
    EXPECT_TRUE(store->save(ApiKey(u"abc"_s), account));
}

TEST_F(KeychainOnDaemon, readsOnceThereIsABus)
{
    daemon.bus().kill();
    launch();

    EXPECT_EQ(store->load(account), unavailable);
    EXPECT_FALSE(store->save(ApiKey(u"abc"_s), otherAccount));
    EXPECT_FALSE(store->remove(otherAccount));

    daemon.bus().start();
    daemon.start();
    timers.advance(2s);
    ASSERT_TRUE(becomesReadable());
    EXPECT_EQ(store->load(account), absent);
}

TEST_F(KeychainOnDaemon, outlivesTheBus)
{
    daemon.start();
    daemon.put(attributesOf(account), "abc");
    launch();
    EXPECT_EQ(store->load(account), found(u"abc"_s));
    const QSignalSpy losses(&bus, &SessionBus::lost);
    daemon.kill();
    daemon.bus().kill();

    EXPECT_EQ(store->load(account), unavailable);
    ASSERT_TRUE(waitFor([&] { return losses.count() == 1; }));
    daemon.bus().start();
    daemon.start();
    timers.advance(2s);

    ASSERT_TRUE(becomesReadable());
    EXPECT_EQ(store->load(account), found(u"abc"_s));
}

TEST(KeychainOnActivatedDaemon, hasAServiceStartedThatDoesNotRun)
{
    SecretServiceDaemon daemon(SecretServiceDaemon::Activation::On);
    daemon.start();
    daemon.put(attributesOf(account), "abc");
    daemon.kill();
    ManualTimers timers;
    const SystemSteadyClock clock;
    SessionBus bus(timers);
    bus.open();
    KeychainHelper store(bus, timers, clock, patient);
    QSignalSpy readable(&store, &KeyStore::becameReadable);

    EXPECT_EQ(store.load(account), unavailable);

    EXPECT_TRUE(daemon.isRunning());
    daemon.unlock();
    ASSERT_TRUE(waitFor([&] { return readable.count() == 1; }));
    EXPECT_EQ(store.load(account), found(u"abc"_s));
}

TEST_F(KeychainOnDaemon, waitsNoLongerForABusThatHangs)
{
    daemon.start();
    launch(limits);
    endStartUp();
    daemon.bus().halt();

    const milliseconds waited = duration([this] { EXPECT_EQ(store->load(account), unavailable); });

    EXPECT_LE(waited, questionLimit + slack);
    daemon.bus().goOn();
    timers.advance(1s);
    ASSERT_TRUE(becomesReadable());
    EXPECT_EQ(store->load(account), absent);
}

TEST_F(KeychainOnDaemon, neverShowsAKey)
{
    testing::internal::CaptureStderr();
    daemon.start();
    launch();
    store->save(ApiKey(u"sk_live_secret"_s), account);
    store->load(account);
    daemon.kill();
    store->save(ApiKey(u"sk_live_secret"_s), otherAccount);
    store->load(account);

    EXPECT_EQ(testing::internal::GetCapturedStderr().find("sk_live"), std::string::npos);
}

} // namespace
} // namespace glimmet
