#include "tests/platform/ChildProcess.h"
#include "tests/platform/TestFolder.h"
#include "tests/platform/TestPreferences.h"
#include "tests/support/Printing.h"

#include <gmock/gmock.h>

#include <QJsonDocument>
#include <QJsonObject>

#include <chrono>
#include <random>
#include <thread>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;

const QString key = u"me.kerno.glimmet.quotes"_s;
const QString otherKey = u"glimmet.cryptoSymbols"_s;

QStringList listOf(int number)
{
    return QStringList(500, u"quote of list %1"_s.arg(number));
}

bool isOneOfTheLists(const QStringList &list)
{
    return !list.isEmpty() && list == QStringList(500, list.first());
}

/// Writes one list after the other until it is killed, and says so once it has written the first.
int writeForEver(const QString &path, int readyDescriptor)
{
    TestPreferences preferences(path);
    JsonPreferencesStore &store = preferences.store;
    for (int number = 0;; ++number) {
        if (!store.setStringList(key, listOf(number)))
            return 1;
        if (number == 0 && write(readyDescriptor, "r", 1) != 1)
            return 2;
    }
}

TEST(JsonPreferencesKill, leavesTheFileWholeAtAnyMoment)
{
    const TestFolder folder;
    TestPreferences preferences(folder.file());
    JsonPreferencesStore &store = preferences.store;
    ASSERT_TRUE(store.setStringList(otherKey, { u"AAPL"_s }));
    std::mt19937 random(20260504); // The same moments in every run.
    std::uniform_int_distribution<int> microseconds(0, 6000);

    for (int round = 0; round < 60; ++round) {
        Pipe ready;
        ChildProcess writer([&] { return writeForEver(folder.file(), ready.writer()); });
        char mark = 0;
        ASSERT_EQ(read(ready.reader(), &mark, 1), 1);
        std::this_thread::sleep_for(std::chrono::microseconds(microseconds(random)));
        writer.killNow();

        const auto list = store.stringList(key);
        ASSERT_TRUE(list) << "round " << round;
        ASSERT_TRUE(isOneOfTheLists(*list)) << "round " << round;
        ASSERT_EQ(store.stringList(otherKey), QStringList{ u"AAPL"_s }) << "round " << round;
    }

    EXPECT_TRUE(store.setStringList(key, { u"calm"_s }));
    EXPECT_THAT(entriesOf(folder.path()), testing::ElementsAre(u"preferences.json"_s));
}

/// Writes `count` keys that begin with `prefix`.
int writeKeys(const QString &path, const QString &prefix, int count)
{
    TestPreferences preferences(path);
    JsonPreferencesStore &store = preferences.store;
    for (int number = 0; number < count; ++number) {
        if (!store.setStringList(prefix + QString::number(number), { prefix }))
            return 1;
    }
    return 0;
}

TEST(JsonPreferencesTwoPrograms, loseNothingWhenTheyWriteAtOnce)
{
    constexpr int count = 60;
    const TestFolder folder;

    ChildProcess one([&] { return writeKeys(folder.file(), u"one"_s, count); });
    ChildProcess two([&] { return writeKeys(folder.file(), u"two"_s, count); });
    EXPECT_EQ(one.wait(), 0);
    EXPECT_EQ(two.wait(), 0);

    TestPreferences preferences(folder.file());
    const JsonPreferencesStore &store = preferences.store;
    for (const QString &prefix : { u"one"_s, u"two"_s }) {
        for (int number = 0; number < count; ++number)
            EXPECT_EQ(store.stringList(prefix + QString::number(number)), QStringList{ prefix });
    }
}

TEST(JsonPreferencesTwoPrograms, neverShowAReaderHalfAFile)
{
    const TestFolder folder;
    TestPreferences preferences(folder.file());
    const JsonPreferencesStore &reader = preferences.store;
    Pipe ready;
    const ChildProcess writer([&] { return writeForEver(folder.file(), ready.writer()); });
    char mark = 0;
    ASSERT_EQ(read(ready.reader(), &mark, 1), 1);

    for (int look = 0; look < 2000; ++look) {
        const auto list = reader.stringList(key);
        ASSERT_TRUE(list && isOneOfTheLists(*list)) << "look " << look;
    }
}

} // namespace
} // namespace glimmet
