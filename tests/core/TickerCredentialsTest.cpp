#include "tests/support/TestWorld.h"

#include <QCoreApplication>

namespace glimmet {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const QStringList accounts{ u"polar_api_key"_s, u"revenuecat_api_key"_s, u"revenuecat_project_id"_s,
    u"dodo_api_key"_s, u"stripe_api_key"_s, u"stripe_currency"_s, u"lemonsqueezy_api_key"_s };

/// A key store that is locked in the middle of a start.
class FailingKeyStore final : public KeyStore {
public:
    /// The calls from this number on (from 0) fail, until the store is unlocked.
    FailingKeyStore(MemoryKeyStore &store, int firstFailure)
        : m_store(store)
        , m_firstFailure(firstFailure)
    {
        connect(&store, &KeyStore::becameReadable, this, &KeyStore::becameReadable);
    }

    KeyObstacle obstacle() const override { return m_store.obstacle(); }
    void ask(Wish wish) override { m_store.ask(wish); }
    bool isAsking() const override { return m_store.isAsking(); }

private:
    bool write(const ApiKey &value, const QString &account, Cause cause) override
    {
        return next().save(value, account, cause);
    }
    LoadedKey read(const QString &account) override { return next().load(account); }
    bool erase(const QString &account, Cause cause) override { return next().remove(account, cause); }

    KeyStore &next()
    {
        if (m_calls++ == m_firstFailure)
            m_store.lock();
        return m_store;
    }

    MemoryKeyStore &m_store;
    int m_firstFailure;
    int m_calls = 0;
};

/// A world in which a test starts a ticker when the key store is as it wants it.
class TickerCredentials : public testing::Test {
protected:
    TickerViewModel &start()
    {
        ticker = std::make_unique<TickerViewModel>(world.forTicker());
        return *ticker;
    }
    /// The same with a store whose calls fail from this number on; a load and a save make an item's two.
    TickerViewModel &startFailingAt(int call)
    {
        failing = std::make_unique<FailingKeyStore>(world.keys, call);
        TickerWorld failingWorld = world.forTicker();
        failingWorld.keys = failing.get();
        ticker = std::make_unique<TickerViewModel>(failingWorld);
        return *ticker;
    }
    /// What the store tells from the event loop arrives.
    void unlock()
    {
        world.keys.unlock();
        QCoreApplication::sendPostedEvents();
    }
    QByteArray stored(const QString &account) { return world.keys.items().value(account, "absent"); }

    TestWorld world;
    std::unique_ptr<FailingKeyStore> failing;
    std::unique_ptr<TickerViewModel> ticker;
};

TEST_F(TickerCredentials, areLoadedInTheirOrderAndEachWrittenBack)
{
    start();

    EXPECT_EQ(world.keys.loads(), accounts);
    EXPECT_EQ(world.keys.saves(), accounts);
}

TEST_F(TickerCredentials, areSevenItemsAfterAFirstStart)
{
    start();

    EXPECT_EQ(world.keys.items().size(), 7);
    EXPECT_EQ(stored(u"stripe_currency"_s), "USD");
    EXPECT_EQ(stored(u"polar_api_key"_s), "");
}

TEST_F(TickerCredentials, comeBackAfterARelaunch)
{
    start().setStripeAPIKey(u"sk_live_1"_s);
    ticker->setStripeCurrency(u"EUR"_s);
    ticker->setDodoCurrency(u"GBP"_s);
    ticker->setRevenueCatProjectID(u"proj1"_s);

    start();

    EXPECT_EQ(ticker->stripeAPIKey(), u"sk_live_1"_s);
    EXPECT_EQ(ticker->stripeCurrency(), u"EUR"_s);
    EXPECT_EQ(ticker->dodoCurrency(), u"USD"_s);
    EXPECT_EQ(ticker->revenueCatProjectID(), u"proj1"_s);
}

TEST_F(TickerCredentials, areSavedByEveryAssignmentAlsoByAnEqualOne)
{
    start();
    world.keys.forgetCalls();

    ticker->setPolarAPIKey(u"k"_s);
    ticker->setPolarAPIKey(u"k"_s);
    ticker->setStripeCurrency(u"USD"_s);

    EXPECT_THAT(
        world.keys.saves(), ElementsAre(u"polar_api_key"_s, u"polar_api_key"_s, u"stripe_currency"_s));
}

TEST_F(TickerCredentials, areSavedBeforeTheFetchThatNeedsThem)
{
    start();
    ticker->setMode(TickerMode::Revenue);
    QByteArray storedAtFetch;
    QObject::connect(ticker.get(), &TickerViewModel::isFetchingRevenueChanged, ticker.get(),
        [&] { storedAtFetch = stored(u"polar_api_key"_s); });
    world.revenue.answer(0, u"add api key"_s);

    ticker->setPolarAPIKey(u"k"_s);

    EXPECT_EQ(storedAtFetch, "k");
}

TEST_F(TickerCredentials, startNoFetchWhileTheyAreLoaded)
{
    world.keys.items().insert(u"polar_api_key"_s, "k");

    start();

    EXPECT_EQ(world.revenue.count(), 1U);
    EXPECT_EQ(world.revenue.query(0).apiKey, ApiKey(u"k"_s));
}

TEST_F(TickerCredentials, areNotOverwrittenWhileTheyOnlyCannotBeRead)
{
    world.keys.items() = { { u"polar_api_key"_s, "real" }, { u"stripe_currency"_s, "EUR" } };
    world.keys.lock();

    start();

    EXPECT_EQ(ticker->polarAPIKey(), u""_s);
    EXPECT_EQ(ticker->stripeCurrency(), u"USD"_s);
    EXPECT_EQ(stored(u"polar_api_key"_s), "real");
}

TEST_F(TickerCredentials, areLoadedWithoutARelaunchOnceTheStoreCanBeRead)
{
    world.keys.items() = { { u"polar_api_key"_s, "real" }, { u"stripe_currency"_s, "EUR" } };
    world.keys.lock();
    start();

    unlock();

    EXPECT_EQ(ticker->polarAPIKey(), u"real"_s);
    EXPECT_EQ(ticker->stripeCurrency(), u"EUR"_s);
    EXPECT_EQ(stored(u"polar_api_key"_s), "real");
    EXPECT_EQ(world.keys.items().size(), 7);
}

TEST_F(TickerCredentials, thatTheUserSetMeanwhileWinAndAreSavedOnceTheStoreCanBeRead)
{
    world.keys.items() = { { u"polar_api_key"_s, "old" }, { u"stripe_currency"_s, "EUR" } };
    world.keys.lock();
    start();
    ticker->setPolarAPIKey(u"new"_s);
    ticker->setStripeCurrency(u"USD"_s); // The same as what stands in for it.

    unlock();

    EXPECT_EQ(ticker->polarAPIKey(), u"new"_s);
    EXPECT_EQ(stored(u"polar_api_key"_s), "new");
    EXPECT_EQ(ticker->stripeCurrency(), u"USD"_s);
    EXPECT_EQ(stored(u"stripe_currency"_s), "USD");
}

TEST_F(TickerCredentials, whoseSaveFailedAreSavedOnceTheStoreCanBeRead)
{
    start();
    world.keys.lock();
    ticker->setPolarAPIKey(u"new"_s);
    EXPECT_EQ(stored(u"polar_api_key"_s), "");

    unlock();

    EXPECT_EQ(ticker->polarAPIKey(), u"new"_s);
    EXPECT_EQ(stored(u"polar_api_key"_s), "new");
}

TEST_F(TickerCredentials, thatWereEmptiedWhileTheStoreWasLockedStayEmpty)
{
    world.keys.items() = { { u"polar_api_key"_s, "old" } };
    start();
    world.keys.lock();
    ticker->setPolarAPIKey({});

    unlock();

    EXPECT_EQ(stored(u"polar_api_key"_s), "");
}

TEST_F(TickerCredentials, areAskedForAgainWithTheNextRefreshIfTheStoreSaysNothing)
{
    world.keys.items() = { { u"polar_api_key"_s, "real" } };
    world.keys.lock();
    start();
    world.keys.unlock(); // What it tells is not heard here.

    world.timers.advance(300s);

    EXPECT_EQ(ticker->polarAPIKey(), u"real"_s);
    EXPECT_EQ(world.revenue.query(1).apiKey, ApiKey(u"real"_s));
}

TEST_F(TickerCredentials, thatAreSettledAreNotAskedForAgain)
{
    start();
    world.keys.forgetCalls();

    world.timers.advance(900s);

    EXPECT_THAT(world.keys.loads(), IsEmpty());
    EXPECT_THAT(world.keys.saves(), IsEmpty());
}

TEST_F(TickerCredentials, thatCouldBeReadStayWhenTheStoreFailsInTheMiddleOfAStart)
{
    for (const QString &account : accounts)
        world.keys.items().insert(account, account.toUtf8());
    const auto before = world.keys.items();

    startFailingAt(6); // The load of the fourth.
    EXPECT_EQ(ticker->revenueCatProjectID(), u"revenuecat_project_id"_s);
    EXPECT_EQ(ticker->dodoAPIKey(), u""_s);
    EXPECT_EQ(ticker->stripeCurrency(), u"USD"_s);
    unlock();

    EXPECT_EQ(ticker->dodoAPIKey(), u"dodo_api_key"_s);
    EXPECT_EQ(ticker->lemonSqueezyAPIKey(), u"lemonsqueezy_api_key"_s);
    EXPECT_EQ(world.keys.items(), before);
}

TEST_F(TickerCredentials, thatWereLostOnTheirWayBackAreWrittenOnceTheStoreCanBeRead)
{
    world.keys.items() = { { u"polar_api_key"_s, "real" } };
    startFailingAt(1);
    world.keys.items().clear(); // Removed, and not added again.

    unlock();

    EXPECT_EQ(stored(u"polar_api_key"_s), "real");
    EXPECT_EQ(ticker->polarAPIKey(), u"real"_s);
}

TEST_F(TickerCredentials, thatSomebodyElseChangedBeforeTheyCouldBeWrittenBackWin)
{
    world.keys.items() = { { u"polar_api_key"_s, "old" } };
    startFailingAt(1);
    world.keys.items().insert(u"polar_api_key"_s, "new");

    unlock();

    EXPECT_EQ(stored(u"polar_api_key"_s), "new");
    EXPECT_EQ(ticker->polarAPIKey(), u"new"_s);
}

TEST_F(TickerCredentials, thatWereWrittenAfterAllAreNotWrittenAgain)
{
    start();
    world.keys.lock();
    ticker->setPolarAPIKey(u"new"_s);
    world.keys.items().insert(u"polar_api_key"_s, "new"); // The user agreed in a prompt.
    world.keys.forgetCalls();

    unlock();
    world.timers.advance(300s);

    EXPECT_THAT(world.keys.saves(), IsEmpty());
    EXPECT_EQ(stored(u"polar_api_key"_s), "new");
}

TEST_F(TickerCredentials, fetchTheFigureWhenTheyArriveLateInTheirMode)
{
    world.keys.items() = { { u"polar_api_key"_s, "real" } };
    world.keys.lock();
    start().setMode(TickerMode::Revenue);
    const std::size_t before = world.revenue.count();

    unlock();

    ASSERT_EQ(world.revenue.count(), before + 1);
    EXPECT_EQ(world.revenue.query(before).apiKey, ApiKey(u"real"_s));
}

TEST_F(TickerCredentials, thatArriveLateAreNeverFetchedWithTheStandInOfAnother)
{
    world.keys.items() = { { u"stripe_api_key"_s, "sk_live_1" }, { u"stripe_currency"_s, "EUR" } };
    world.keys.lock();
    start().setRevenueProvider(RevenueProvider::Stripe);
    ticker->setMode(TickerMode::Revenue);
    const std::size_t before = world.revenue.count();

    unlock();

    ASSERT_EQ(world.revenue.count(), before + 1);
    EXPECT_EQ(world.revenue.query(before).currency, u"eur"_s);
}

TEST_F(TickerCredentials, liveAsLongAsTheTickerWithoutAStore)
{
    TickerWorld without = world.forTicker();
    without.keys = nullptr;
    TickerViewModel alone(without);

    alone.setPolarAPIKey(u"k"_s);

    EXPECT_EQ(alone.polarAPIKey(), u"k"_s);
    EXPECT_THAT(world.keys.saves(), IsEmpty());
}

} // namespace
} // namespace glimmet
