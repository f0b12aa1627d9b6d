#include "tests/platform/keys/FakeServiceWorld.h"
#include "tests/support/Printing.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using Cause = KeyStore::Cause;
using Fault = FakeSecretService::Fault;
using World = FakeServiceWorld;

const QString account = u"polar_api_key"_s;
const LoadedKey unavailable = KeyUnavailable{};

LoadedKey found(const QString &text)
{
    return ApiKey(text);
}

TEST(KeychainPrompts, startsThePromptOfAnAdditionThatTheUserCaused)
{
    World world;
    world.service.failAt(u"CreateItem"_s, Fault::Prompts);

    EXPECT_TRUE(world.store->save(ApiKey(u"new"_s), account, Cause::User));

    EXPECT_EQ(world.service.items().value(account), QByteArray("new"));
    EXPECT_EQ(world.service.calls().count(u"CreateItem"_s), 1);
}

TEST(KeychainPrompts, areNotWaitedForWhereTheUserDidNotCauseThem)
{
    World world;
    QSignalSpy readable(&*world.store, &KeyStore::becameReadable);
    world.service.failAt(u"CreateItem"_s, Fault::Prompts);

    EXPECT_FALSE(world.store->save(ApiKey(), u"dodo_api_key"_s));

    EXPECT_EQ(world.store->obstacle(), KeyObstacle::AwaitsUser);
    world.timers.advance(1min);
    settle(world.sessionBus.connection());
    EXPECT_TRUE(readable.isEmpty());
    EXPECT_TRUE(world.timers.running().empty());
}

TEST(KeychainPrompts, comeOneAfterTheOther)
{
    World world;
    QSignalSpy readable(&*world.store, &KeyStore::becameReadable);
    world.service.lock();
    world.service.failAt(u"Unlock"_s, Fault::Prompts);
    world.store->load(account);
    world.store->ask(KeyStore::Wish::Unlocking);
    ASSERT_TRUE(world.store->isAsking());
    ASSERT_TRUE(waitFor([&] { return world.service.calls().contains(u"Prompt"_s); }));

    world.service.failAt(u"CreateItem"_s, Fault::Prompts);
    EXPECT_EQ(world.store->load(account), found(u"old"_s));
    EXPECT_FALSE(world.store->save(ApiKey(u"new"_s), account, Cause::User));

    EXPECT_EQ(world.service.calls().count(u"Prompt"_s), 1);
}

TEST(KeychainPrompts, belongToTheWindowThatIsOpenThen)
{
    for (const quint32 window : { 0U, 8388614U }) {
        World world;
        world.store->setDialogParent([window] { return window; });
        world.service.failAt(u"CreateItem"_s, Fault::Prompts);

        world.store->save(ApiKey(u"new"_s), account, Cause::User);

        EXPECT_EQ(world.service.promptWindow(), window == 0 ? QString() : u"8388614"_s);
    }
}

TEST(KeychainPrompts, startsThePromptOfARemovalThatTheUserCaused)
{
    World world;
    world.service.failAt(u"Delete"_s, Fault::Prompts);

    EXPECT_TRUE(world.store->remove(account, Cause::User));

    EXPECT_FALSE(world.service.items().contains(account));
}

TEST(KeychainPrompts, startsNoPromptByItself)
{
    for (const QString &change : { u"CreateItem"_s, u"Delete"_s }) {
        World world;
        world.service.failAt(change, Fault::Prompts);
        world.store->save(ApiKey(u"new"_s), u"dodo_api_key"_s);
        world.service.failAt(change, Fault::Prompts);
        world.store->remove(account);

        EXPECT_FALSE(world.service.calls().contains(u"Prompt"_s)) << change.toStdString();
    }
}

TEST(KeychainPrompts, leavesThePromptOfARemovalWithinASaveAlone)
{
    World world;
    world.service.failAt(u"Delete"_s, Fault::Prompts);

    EXPECT_TRUE(world.store->save(ApiKey(u"new"_s), account, Cause::User));

    EXPECT_EQ(world.service.items().value(account), QByteArray("new"));
    EXPECT_FALSE(world.service.calls().contains(u"Prompt"_s));
}

TEST(KeychainPrompts, asksForNothingWhereTheCollectionIsLocked)
{
    World world;
    world.service.lock();

    EXPECT_EQ(world.store->load(account), unavailable);
    EXPECT_EQ(world.store->obstacle(), KeyObstacle::Locked);
    EXPECT_FALSE(world.store->save(ApiKey(u"new"_s), u"dodo_api_key"_s, Cause::User));

    EXPECT_FALSE(world.service.calls().contains(u"Unlock"_s));
}

TEST(KeychainPrompts, writesNothingOfItsOwnAccordThatIsThereAlready)
{
    World world;

    EXPECT_TRUE(world.store->save(ApiKey(u"old"_s), account));
    EXPECT_FALSE(world.service.calls().contains(u"Delete"_s));
    EXPECT_FALSE(world.service.calls().contains(u"CreateItem"_s));

    EXPECT_TRUE(world.store->save(ApiKey(u"old"_s), account, Cause::User));
    EXPECT_TRUE(world.service.calls().contains(u"CreateItem"_s));
}

TEST(KeychainPrompts, tellsOnceAServiceAnswersThatItIsLocked)
{
    World world(1, { 3s, 200ms, 100ms });
    QSignalSpy readable(&*world.store, &KeyStore::becameReadable);
    world.service.lock();
    world.service.failAt(u"ReadAlias"_s, Fault::Hangs);
    EXPECT_EQ(world.store->load(account), unavailable);
    EXPECT_EQ(world.store->obstacle(), KeyObstacle::NoService);

    world.timers.advance(1s);

    ASSERT_TRUE(waitFor([&] { return readable.count() == 1; }));
    EXPECT_EQ(world.store->load(account), unavailable);
    EXPECT_EQ(world.store->obstacle(), KeyObstacle::Locked);
    world.timers.advance(1min);
    settle(world.sessionBus.connection());
    EXPECT_EQ(readable.count(), 1);
}

TEST(KeychainPrompts, takesAnItemThatIsLockedInTheMidstOfALoadForUnread)
{
    World world;
    world.service.lockItemsBefore(u"GetSecret"_s);

    EXPECT_EQ(world.store->load(account), unavailable);
    EXPECT_FALSE(world.store->save(ApiKey(), account));
    EXPECT_EQ(world.service.items().value(account), QByteArray("old"));
}

TEST(KeychainPrompts, readsAnItemOfNothing)
{
    World world;
    world.service.put(account, "");

    EXPECT_EQ(world.store->load(account), found(u""_s));
}

TEST(KeychainPrompts, asksForItemsThatAreLockedInAnOpenCollection)
{
    World world;
    QSignalSpy readable(&*world.store, &KeyStore::becameReadable);
    world.service.lockItems();
    EXPECT_EQ(world.store->load(account), unavailable);
    EXPECT_EQ(world.store->obstacle(), KeyObstacle::Locked);
    world.timers.advance(1s);
    settle(world.sessionBus.connection());
    EXPECT_TRUE(readable.isEmpty());

    world.store->ask(KeyStore::Wish::Unlocking);

    ASSERT_TRUE(waitFor([&] { return readable.count() == 1; }));
    EXPECT_EQ(world.store->load(account), found(u"old"_s));
}

TEST(KeychainPrompts, readsAfterTheServiceHasUnlockedByItself)
{
    World world;
    QSignalSpy readable(&*world.store, &KeyStore::becameReadable);
    world.service.lock();
    world.store->load(account);

    world.store->ask(KeyStore::Wish::Unlocking);

    ASSERT_TRUE(waitFor([&] { return readable.count() == 1; }));
    EXPECT_EQ(world.store->load(account), found(u"old"_s));
    EXPECT_FALSE(world.store->isAsking());
}

} // namespace
} // namespace glimmet
