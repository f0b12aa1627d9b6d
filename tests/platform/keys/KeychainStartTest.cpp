#include "tests/platform/keys/FakeServiceWorld.h"

#include <gtest/gtest.h>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;
using Fault = FakeSecretService::Fault;

const QString account = u"polar_api_key"_s;
const QString otherAccount = u"stripe_api_key"_s;

LoadedKey found(const QString &text)
{
    return ApiKey(text);
}

/// The turn of the event loop in which the program begins.
class KeychainAtTheStart : public testing::Test {
protected:
    KeychainAtTheStart() { world.store.emplace(world.sessionBus, world.timers, world.steadyClock, patient); }

    qsizetype calls(const QString &method) const { return world.service.calls().count(method); }

    FakeServiceWorld world;
};

TEST_F(KeychainAtTheStart, writesBackWhatItHasReadWithoutAskingAgain)
{
    world.service.put(otherAccount, "also old");
    EXPECT_EQ(world.store->load(account), found(u"old"_s));
    EXPECT_EQ(world.store->load(otherAccount), found(u"also old"_s));
    const QStringList loading = world.service.calls();

    EXPECT_TRUE(world.store->save(ApiKey(u"old"_s), account));
    EXPECT_TRUE(world.store->save(ApiKey(u"also old"_s), otherAccount));

    EXPECT_EQ(world.service.calls(), loading);
    EXPECT_EQ(world.store->obstacle(), KeyObstacle::None);
    EXPECT_EQ(calls(u"ReadAlias"_s), 1);
    EXPECT_EQ(calls(u"SearchItems"_s), 2);
}

TEST_F(KeychainAtTheStart, writesWhatIsAnotherValueOrTheUsersOrComesTwice)
{
    EXPECT_EQ(world.store->load(account), found(u"old"_s));
    EXPECT_TRUE(world.store->save(ApiKey(u"new"_s), account));
    EXPECT_EQ(world.service.items().value(account), QByteArray("new"));
    EXPECT_TRUE(world.store->save(ApiKey(u"old"_s), account)) << "which is not there any more";
    EXPECT_EQ(world.service.items().value(account), QByteArray("old"));

    EXPECT_EQ(world.store->load(account), found(u"old"_s));
    EXPECT_TRUE(world.store->save(ApiKey(u"old"_s), account, KeyStore::Cause::User));
    EXPECT_EQ(calls(u"CreateItem"_s), 3);
}

TEST_F(KeychainAtTheStart, asksAgainOnceItIsOver)
{
    EXPECT_EQ(world.store->load(account), found(u"old"_s));
    QTest::qWait(0);
    world.service.put(account, "another's");

    EXPECT_TRUE(world.store->save(ApiKey(u"old"_s), account));

    EXPECT_EQ(world.service.items().value(account), QByteArray("old"));
    EXPECT_EQ(calls(u"ReadAlias"_s), 2);
}

TEST_F(KeychainAtTheStart, looksForTheCollectionAnewWhereItsItemsAreNotFound)
{
    EXPECT_EQ(world.store->load(account), found(u"old"_s));
    world.service.failAt(u"SearchItems"_s, Fault::Refuses);

    EXPECT_EQ(world.store->load(account), found(u"old"_s));
    EXPECT_EQ(calls(u"ReadAlias"_s), 2);
}

TEST_F(KeychainAtTheStart, takesNothingForAbsentThatIsLockedMeanwhile)
{
    EXPECT_EQ(world.store->load(account), found(u"old"_s));
    EXPECT_EQ(world.store->load(otherAccount), LoadedKey(KeyAbsent{}));
    world.service.lock();

    EXPECT_EQ(world.store->load(otherAccount), LoadedKey(KeyUnavailable{}));
    EXPECT_EQ(world.store->obstacle(), KeyObstacle::Locked);
}

} // namespace
} // namespace glimmet
