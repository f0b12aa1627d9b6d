#include "tests/support/TestWorld.h"

#include <QCoreApplication>
#include <QSignalSpy>

namespace glimmet {
namespace {

using State = KeyStatus::State;
using Wish = KeyStore::Wish;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr KeychainKey polar = KeychainKey::PolarAPIKey;
constexpr KeyStatus saved{ State::Saved };
constexpr KeyStatus absent{ State::Absent };
constexpr KeyStatus locked{ State::Unknown, KeyObstacle::Locked };
constexpr KeyStatus keptBecauseLocked{ State::KeptUntilEnd, KeyObstacle::Locked };

/// A ticker over a key store that a test locks.
class TickerKeyStatus : public testing::Test {
protected:
    TickerViewModel &start()
    {
        ticker = std::make_unique<TickerViewModel>(world.forTicker());
        return *ticker;
    }
    TickerViewModel &startLocked(KeyObstacle by = KeyObstacle::Locked)
    {
        world.keys.setObstacle(by);
        world.keys.lock();
        return start();
    }
    /// What the store tells from the event loop arrives.
    void unlock()
    {
        world.keys.unlock();
        QCoreApplication::sendPostedEvents();
    }
    void refuse() { emit world.keys.refused(); }
    /// The user types the key, and pauses.
    void type(const QString &key)
    {
        ticker->setPolarAPIKey(key);
        world.timers.advance(1200ms);
    }
    QByteArray stored(const QString &account) { return world.keys.items().value(account, "absent"); }

    TestWorld world;
    std::unique_ptr<TickerViewModel> ticker;
};

TEST_F(TickerKeyStatus, isSavedWhileTheStoreHoldsTheValue)
{
    world.keys.items() = { { u"polar_api_key"_s, "k" } };

    EXPECT_EQ(start().credentialStatus(polar), saved);
    EXPECT_EQ(ticker->credentialStatus(KeychainKey::DodoAPIKey), absent);
    ticker->setPolarAPIKey(u"other"_s);
    EXPECT_EQ(ticker->credentialStatus(polar), saved);
    ticker->setPolarAPIKey(u""_s);
    EXPECT_EQ(ticker->credentialStatus(polar), absent);
}

TEST_F(TickerKeyStatus, isUnknownWhileTheStoreIsLocked)
{
    EXPECT_EQ(startLocked().credentialStatus(polar), locked);
}

TEST_F(TickerKeyStatus, isKeptUntilTheEndWhereTheStoreDoesNotTakeTheValue)
{
    for (const KeyObstacle obstacle :
        { KeyObstacle::Locked, KeyObstacle::NoCollection, KeyObstacle::NoService, KeyObstacle::Refused }) {
        startLocked(obstacle).setPolarAPIKey(u"k"_s);

        EXPECT_EQ(ticker->credentialStatus(polar), (KeyStatus{ State::KeptUntilEnd, obstacle }));
    }
}

TEST_F(TickerKeyStatus, isKeptUntilTheEndWhereTheStoreIsLockedDuringTheRun)
{
    start().setPolarAPIKey(u"k"_s);
    world.keys.lock();
    EXPECT_EQ(ticker->credentialStatus(polar), saved);

    ticker->setPolarAPIKey(u"other"_s);

    EXPECT_EQ(ticker->credentialStatus(polar), keptBecauseLocked);
    EXPECT_EQ(stored(u"polar_api_key"_s), "k");
}

TEST_F(TickerKeyStatus, isNoKeySavedWhereAValueIsNoText)
{
    start().setPolarAPIKey(QString(QChar(0xD800)));

    EXPECT_EQ(ticker->credentialStatus(polar), (KeyStatus{ State::KeptUntilEnd, KeyObstacle::Refused }));
}

TEST_F(TickerKeyStatus, isAbsentWhereThereIsNoCollectionAndNothingWasTyped)
{
    EXPECT_EQ(startLocked(KeyObstacle::NoCollection).credentialStatus(polar),
        (KeyStatus{ State::Absent, KeyObstacle::NoCollection }));
}

TEST_F(TickerKeyStatus, isToldWheneverItChanges)
{
    startLocked();
    QSignalSpy told(ticker.get(), &TickerViewModel::credentialStatusChanged);

    ticker->setPolarAPIKey(u"k"_s);
    EXPECT_EQ(told.count(), 1);
    ticker->setPolarAPIKey(u"ke"_s);
    EXPECT_EQ(told.count(), 1);
    unlock();

    EXPECT_EQ(told.count(), 1 + 7);
    EXPECT_EQ(ticker->credentialStatus(polar), saved);
    EXPECT_EQ(ticker->credentialStatus(KeychainKey::DodoAPIKey), absent);
    EXPECT_EQ(stored(u"polar_api_key"_s), "ke");
}

TEST_F(TickerKeyStatus, nothingIsAskedOfTheUserByAStartOrByTime)
{
    startLocked();
    world.timers.advance(10min);

    EXPECT_THAT(world.keys.wishes(), IsEmpty());
}

TEST_F(TickerKeyStatus, choosingRevenueAsksToUnlockWhatIsLocked)
{
    startLocked().chooseMode(TickerMode::Custom);
    EXPECT_THAT(world.keys.wishes(), IsEmpty());

    ticker->chooseMode(TickerMode::Revenue);

    EXPECT_THAT(world.keys.wishes(), ElementsAre(Wish::Unlocking));
}

TEST_F(TickerKeyStatus, choosingRevenueAsksForNothingWhereNothingIsLocked)
{
    start().chooseMode(TickerMode::Revenue);
    startLocked(KeyObstacle::NoCollection).chooseMode(TickerMode::Revenue);
    startLocked(KeyObstacle::NoService).chooseMode(TickerMode::Revenue);

    EXPECT_THAT(world.keys.wishes(), IsEmpty());
}

TEST_F(TickerKeyStatus, choosingRevenueAsksNoMoreAfterARefusal)
{
    startLocked().chooseMode(TickerMode::Revenue);
    refuse();

    ticker->chooseMode(TickerMode::Clock);
    ticker->chooseMode(TickerMode::Revenue);

    EXPECT_EQ(world.keys.wishes().size(), 1);
}

TEST_F(TickerKeyStatus, typingAKeyAsksForTheStoreToBeOpenedOrMade)
{
    for (const KeyObstacle obstacle : { KeyObstacle::Locked, KeyObstacle::NoCollection }) {
        const qsizetype before = world.keys.wishes().size();

        startLocked(obstacle);
        type(u"k"_s);

        EXPECT_EQ(world.keys.wishes().mid(before), QList{ Wish::UnlockingOrMaking });
    }
}

TEST_F(TickerKeyStatus, nothingIsAskedAmidTheTypingOfAKey)
{
    startLocked();
    ticker->beginCredentialEditing();
    for (const QString &typed : { u"p"_s, u"po"_s, u"pol"_s, u"pola"_s }) {
        ticker->setPolarAPIKey(typed);
        world.timers.advance(1100ms);
        EXPECT_THAT(world.keys.wishes(), IsEmpty());
    }

    world.timers.advance(100ms);

    EXPECT_THAT(world.keys.wishes(), ElementsAre(Wish::UnlockingOrMaking));
}

TEST_F(TickerKeyStatus, leavingTheFieldOfATypedKeyAsksAtOnceAndOnce)
{
    startLocked();
    ticker->beginCredentialEditing();
    ticker->setPolarAPIKey(u"k"_s);

    ticker->endCredentialEditing();
    EXPECT_THAT(world.keys.wishes(), ElementsAre(Wish::UnlockingOrMaking));
    world.timers.advance(10min);
    ticker->endCredentialEditing();

    EXPECT_EQ(world.keys.wishes().size(), 1);
}

TEST_F(TickerKeyStatus, nothingIsAskedForAKeyThatIsSavedBeforeThePause)
{
    start();
    world.keys.lock();
    ticker->setPolarAPIKey(u"k"_s);
    unlock();
    ASSERT_EQ(ticker->credentialStatus(polar), saved);

    world.timers.advance(10min);

    EXPECT_THAT(world.keys.wishes(), IsEmpty());
}

TEST_F(TickerKeyStatus, typingAKeyAsksForNothingThatCannotHelp)
{
    start().setPolarAPIKey(u"k"_s);
    startLocked(KeyObstacle::NoService).setPolarAPIKey(u"k"_s);

    EXPECT_THAT(world.keys.wishes(), IsEmpty());
}

TEST_F(TickerKeyStatus, aRefusalHoldsForOneEditingOfAKey)
{
    startLocked();
    ticker->beginCredentialEditing();
    type(u"k"_s);
    refuse();
    type(u"ke"_s);
    EXPECT_EQ(world.keys.wishes().size(), 1);

    ticker->beginCredentialEditing();
    type(u"key"_s);

    EXPECT_EQ(world.keys.wishes().size(), 2);
}

TEST_F(TickerKeyStatus, aSaveMayMakeTheStoreAskUntilTheUserRefuses)
{
    using Cause = KeyStore::Cause;
    start();
    EXPECT_THAT(world.keys.causes(), testing::Each(Cause::Program));
    world.keys.setRefusal(KeyObstacle::AwaitsUser);
    world.keys.forgetCalls();

    type(u"k"_s);
    refuse();
    type(u"ke"_s);
    ticker->beginCredentialEditing();
    type(u"key"_s);

    EXPECT_THAT(world.keys.causes(),
        ElementsAre(Cause::Program, Cause::User, Cause::Program, Cause::Program, Cause::User));
}

TEST_F(TickerKeyStatus, whoAsksToUnlockAfterARefusalHasTheTypedKeySaved)
{
    using Cause = KeyStore::Cause;
    startLocked().setPolarAPIKey(u"k"_s);
    refuse();
    ticker->unlockKeys();
    world.keys.forgetCalls();

    unlock();

    EXPECT_EQ(world.keys.causes().value(0), Cause::User);
    EXPECT_EQ(ticker->credentialStatus(polar), saved);
}

TEST_F(TickerKeyStatus, aStoreThatAnswersTooLateForTheStartIsAskedOnceTheUserChoosesRevenue)
{
    startLocked(KeyObstacle::NoService);
    world.keys.setObstacle(KeyObstacle::Locked);

    ticker->chooseMode(TickerMode::Revenue);

    EXPECT_THAT(world.keys.wishes(), ElementsAre(Wish::Unlocking));
    EXPECT_EQ(ticker->credentialStatus(polar), locked);
}

TEST_F(TickerKeyStatus, aStoreThatAnswersTooLateForTheStartIsReadOnceAndFetchedForOnce)
{
    world.keys.items() = { { u"polar_api_key"_s, "k" } };
    startLocked(KeyObstacle::NoService);
    world.keys.openUnheard();
    const auto fetches = world.revenue.count();

    ticker->chooseMode(TickerMode::Revenue);

    EXPECT_EQ(ticker->polarAPIKey(), u"k"_s);
    EXPECT_EQ(world.revenue.count(), fetches + 1);
}

TEST_F(TickerKeyStatus, aKeyThatIsFoundWhenTheUserTurnsToItsFieldIsFetchedForWhereItIsOnShow)
{
    world.keys.items() = { { u"polar_api_key"_s, "k" } };
    startLocked(KeyObstacle::NoService).setMode(TickerMode::Revenue);
    world.keys.openUnheard();
    const auto fetches = world.revenue.count();

    ticker->beginCredentialEditing();

    EXPECT_EQ(ticker->polarAPIKey(), u"k"_s);
    EXPECT_EQ(world.revenue.count(), fetches + 1);
}

TEST_F(TickerKeyStatus, aStoreThatIsKnownToBeLockedIsNotReadAgainForEachFieldThatTheUserTurnsTo)
{
    startLocked();
    world.keys.forgetCalls();

    ticker->beginCredentialEditing();

    EXPECT_THAT(world.keys.loads(), IsEmpty());
}

TEST_F(TickerKeyStatus, aStoreThatAnswersTooLateForTheStartIsAskedOnceAKeyIsTyped)
{
    startLocked(KeyObstacle::NoService);
    world.keys.setObstacle(KeyObstacle::NoCollection);

    ticker->beginCredentialEditing();
    type(u"k"_s);

    EXPECT_THAT(world.keys.wishes(), ElementsAre(Wish::UnlockingOrMaking));
}

TEST_F(TickerKeyStatus, whatTheStoreWouldHaveToAskForIsNotTriedAgainNorFetchedFor)
{
    world.keys.setRefusal(KeyObstacle::AwaitsUser);
    start().chooseMode(TickerMode::Revenue);
    EXPECT_EQ(ticker->credentialStatus(polar), absent);
    const auto fetches = world.revenue.count();
    world.keys.forgetCalls();

    emit world.keys.becameReadable();

    EXPECT_THAT(world.keys.loads(), IsEmpty());
    EXPECT_EQ(world.revenue.count(), fetches);
}

TEST_F(TickerKeyStatus, theUserMayAskForItAtAnyTime)
{
    startLocked();
    refuse();

    ticker->unlockKeys();

    EXPECT_THAT(world.keys.wishes(), ElementsAre(Wish::UnlockingOrMaking));
}

TEST_F(TickerKeyStatus, aRefusalIsForgottenOnceTheStoreWasOpen)
{
    startLocked().chooseMode(TickerMode::Revenue);
    refuse();
    unlock();
    world.keys.lock();
    type(u"k"_s);
    EXPECT_EQ(world.keys.wishes().size(), 2);

    ticker->chooseMode(TickerMode::Revenue);

    EXPECT_EQ(world.keys.wishes().size(), 3);
}

TEST_F(TickerKeyStatus, whatIsStillUnsavedIsTriedOnceMoreAtTheEnd)
{
    world.keys.items() = { { u"polar_api_key"_s, "old" }, { u"dodo_api_key"_s, "dodo" } };
    startLocked().setPolarAPIKey(u"new"_s);
    world.keys.openUnheard();

    ticker.reset();

    EXPECT_EQ(stored(u"polar_api_key"_s), "new");
    EXPECT_EQ(stored(u"dodo_api_key"_s), "dodo");
}

TEST_F(TickerKeyStatus, nothingIsTriedAtTheEndWhereAllIsSaved)
{
    start().setPolarAPIKey(u"k"_s);
    world.keys.forgetCalls();

    ticker.reset();

    EXPECT_THAT(world.keys.loads(), IsEmpty());
    EXPECT_THAT(world.keys.saves(), IsEmpty());
}

} // namespace
} // namespace glimmet
