#include "platform/FolderLock.h"
#include "tests/platform/ChildProcess.h"
#include "tests/platform/FewFiles.h"
#include "tests/platform/PrivateMounts.h"
#include "tests/platform/TestFolder.h"
#include "tests/platform/TestPreferences.h"
#include "tests/support/Printing.h"

#include <gmock/gmock.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <optional>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

const QString key = u"me.kerno.glimmet.quotes"_s;
const QString otherKey = u"glimmet.cryptoSymbols"_s;

constexpr char begun[] = "[glimmet] settings: not saved yet, trying again\n";
constexpr char over[] = "[glimmet] settings: nothing left to save\n";
constexpr char lost[] = "[glimmet] settings: could not be saved\n";

/// What any other program finds in the file.
QJsonObject stored(const QString &file)
{
    return QJsonDocument::fromJson(contentOf(file)).object();
}

/// A store on a file system that is full while a test wants it so.
class JsonPreferencesRetry : public testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(disk.isMounted());
        ASSERT_TRUE(preferences->store.setStringList(key, { u"old"_s }));
        disk.fillUp();
    }

    JsonPreferencesStore &store() { return preferences->store; }
    QJsonValue inFile(const QString &name) const { return stored(file).value(name); }
    void end() { preferences.reset(); }

    TinyDisk disk{ 256 * 1024 };
    QString file = disk.path() + u"/preferences.json"_s;
    std::optional<TestPreferences> preferences{ std::in_place, file };
    const QJsonArray old{ u"old"_s };
    const QJsonArray fresh{ u"new"_s };
};

TEST_F(JsonPreferencesRetry, writesWithinTenSecondsOfThereBeingRoom)
{
    EXPECT_FALSE(store().setStringList(key, { u"new"_s }));
    preferences->timers.advance(1min);
    EXPECT_EQ(inFile(key), old);
    disk.removeFill();

    preferences->timers.advance(10s);

    EXPECT_EQ(inFile(key), fresh);
}

TEST_F(JsonPreferencesRetry, readsAsTheValueThatWaits)
{
    EXPECT_FALSE(store().setStringList(key, { u"new"_s }));
    EXPECT_FALSE(store().setData(otherKey, "[]"));

    EXPECT_EQ(store().stringList(key), QStringList{ u"new"_s });
    EXPECT_EQ(store().data(otherKey), "[]");
    EXPECT_EQ(store().data(key), std::nullopt);
}

TEST_F(JsonPreferencesRetry, writesWithTheNextValueThatIsSet)
{
    EXPECT_FALSE(store().setStringList(key, { u"new"_s }));
    disk.removeFill();

    EXPECT_TRUE(store().setStringList(otherKey, { u"AAPL"_s }));

    EXPECT_EQ(inFile(key), fresh);
    EXPECT_EQ(inFile(otherKey), QJsonArray{ u"AAPL"_s });
}

TEST_F(JsonPreferencesRetry, writesAtTheEnd)
{
    EXPECT_FALSE(store().setStringList(key, { u"new"_s }));
    disk.removeFill();

    end();

    EXPECT_EQ(inFile(key), fresh);
}

TEST_F(JsonPreferencesRetry, writesTheLastValueOfAKey)
{
    EXPECT_FALSE(store().setStringList(key, { u"first"_s }));
    EXPECT_FALSE(store().setStringList(key, { u"new"_s }));
    disk.removeFill();

    preferences->timers.advance(10s);

    EXPECT_EQ(inFile(key), fresh);
}

TEST_F(JsonPreferencesRetry, endsWhereTheOldValueIsWantedAgain)
{
    EXPECT_FALSE(store().setStringList(key, { u"new"_s }));

    EXPECT_TRUE(store().setStringList(key, { u"old"_s }));

    EXPECT_THAT(preferences->timers.running(), IsEmpty());
    EXPECT_EQ(store().stringList(key), QStringList{ u"old"_s });
}

TEST_F(JsonPreferencesRetry, needsATimerOnlyMeanwhile)
{
    EXPECT_THAT(preferences->timers.running(), IsEmpty());

    EXPECT_FALSE(store().setStringList(key, { u"new"_s }));
    EXPECT_FALSE(store().setStringList(otherKey, { u"AAPL"_s }));
    EXPECT_THAT(preferences->timers.running(), ElementsAre(10s));

    disk.removeFill();
    preferences->timers.advance(10s);
    EXPECT_THAT(preferences->timers.running(), IsEmpty());
}

TEST_F(JsonPreferencesRetry, isOneLineWhenItBeginsAndOneWhenItIsOver)
{
    EXPECT_EQ(preferences->log.written(), "");

    EXPECT_FALSE(store().setStringList(key, { u"new"_s }));
    EXPECT_FALSE(store().setStringList(otherKey, { u"AAPL"_s }));
    preferences->timers.advance(1min);
    EXPECT_EQ(preferences->log.written(), begun);

    disk.removeFill();
    preferences->timers.advance(1min);
    EXPECT_EQ(preferences->log.written(), QByteArray(begun) + over);
}

TEST_F(JsonPreferencesRetry, saysAtTheEndWhetherSomethingIsLost)
{
    CapturedLog log;
    ManualTimers timers;
    for (const bool hasRoom : { false, true }) {
        JsonPreferencesStore ending(file, timers, log.log());
        EXPECT_FALSE(ending.setStringList(key, { u"new"_s }));
        if (hasRoom)
            disk.removeFill();
    }

    EXPECT_EQ(log.written(), QByteArray(begun) + lost + begun + over);
    EXPECT_THAT(timers.running(), IsEmpty());
}

TEST_F(JsonPreferencesRetry, keepsWhatAnotherProgramWroteMeanwhile)
{
    EXPECT_FALSE(store().setStringList(key, { u"new"_s }));
    disk.removeFill();
    ASSERT_TRUE(putFile(file, R"({"me.kerno.glimmet.quotes":["theirs"],"zebra":{"a":1}})"));

    preferences->timers.advance(10s);

    EXPECT_EQ(stored(file), (QJsonObject{ { key, fresh }, { u"zebra"_s, QJsonObject{ { u"a"_s, 1 } } } }));
}

TEST_F(JsonPreferencesRetry, keepsNoValueOutForWhichThereIsRoom)
{
    const QStringList tooLong(50'000, u"a quote that takes some room"_s);
    disk.removeFill();
    EXPECT_FALSE(store().setStringList(key, tooLong));

    EXPECT_TRUE(store().setStringList(otherKey, { u"AAPL"_s }));

    EXPECT_EQ(inFile(otherKey), QJsonArray{ u"AAPL"_s });
    EXPECT_EQ(inFile(key), old);
    EXPECT_EQ(store().stringList(key), tooLong);
    EXPECT_EQ(preferences->log.written(), begun);
}

TEST_F(JsonPreferencesRetry, setsADamagedFileAsideOnce)
{
    disk.removeFill();
    ASSERT_TRUE(putFile(file, "mine"));
    disk.fillUp();
    EXPECT_FALSE(store().setStringList(key, { u"new"_s }));
    preferences->timers.advance(1min);
    disk.removeFill();

    preferences->timers.advance(10s);

    EXPECT_EQ(inFile(key), fresh);
    const QStringList entries = entriesOf(disk.path());
    ASSERT_EQ(entries.size(), 2);
    EXPECT_EQ(contentOf(disk.path() + u'/' + entries.last()), "mine");
}

TEST_F(JsonPreferencesRetry, losesNothingMoreByAKill)
{
    const QByteArray before = contentOf(file);
    Pipe waiting;
    ChildProcess other([&] {
        TestPreferences own(file);
        const bool isWritten = own.store.setStringList(key, { u"new"_s });
        own.timers.advance(1min);
        const bool isTold = write(waiting.writer(), isWritten ? "s" : "w", 1) == 1;
        pause();
        return isTold ? 0 : 1;
    });
    char mark = 0;
    ASSERT_EQ(read(waiting.reader(), &mark, 1), 1);
    ASSERT_EQ(mark, 'w');

    other.killNow();

    EXPECT_EQ(contentOf(file), before);
    EXPECT_THAT(entriesOf(disk.path()), ElementsAre(u"fill"_s, u"preferences.json"_s));
    disk.removeFill();
    EXPECT_TRUE(store().setStringList(otherKey, { u"AAPL"_s }));
    EXPECT_EQ(inFile(key), old);
}

/// A store beside other programs, on a disk with room.
class JsonPreferencesHindered : public testing::Test {
protected:
    QJsonValue inFile(const QString &name) const { return stored(folder.file()).value(name); }

    TestFolder folder;
    std::optional<TestPreferences> preferences{ std::in_place, folder.file() };
};

TEST_F(JsonPreferencesHindered, writesOnceTheLockIsFree)
{
    std::optional<FolderLock> theirs(std::in_place, folder.path());
    EXPECT_FALSE(preferences->store.setStringList(key, { u"new"_s }));
    preferences->timers.advance(10s);
    EXPECT_EQ(inFile(key), QJsonValue::Undefined);
    theirs.reset();

    preferences->timers.advance(10s);

    EXPECT_EQ(inFile(key), QJsonArray{ u"new"_s });
    EXPECT_EQ(preferences->log.written(), QByteArray(begun) + over);
}

TEST_F(JsonPreferencesHindered, looksAtAHeldLockWithoutWaitingForIt)
{
    const FolderLock theirs(folder.path());
    EXPECT_FALSE(preferences->store.setStringList(key, { u"new"_s }));

    // With a second of patience each, the tries of two hours would outlast the time that a test has.
    preferences->timers.advance(2h);

    EXPECT_EQ(preferences->log.written(), begun);
}

TEST_F(JsonPreferencesHindered, waitsForTheLockAtTheEnd)
{
    Pipe ready;
    Pipe hasFailed;
    ChildProcess holder([&] {
        const FolderLock lock(folder.path());
        char mark = 0;
        const bool isTold = write(ready.writer(), "h", 1) == 1 && read(hasFailed.reader(), &mark, 1) == 1;
        usleep(100'000); // The end has begun to wait by then.
        return isTold && lock.isHeld() ? 0 : 1;
    });
    char mark = 0;
    ASSERT_EQ(read(ready.reader(), &mark, 1), 1);
    EXPECT_FALSE(preferences->store.setStringList(key, { u"new"_s }));
    ASSERT_EQ(write(hasFailed.writer(), "f", 1), 1);

    preferences.reset();

    EXPECT_EQ(inFile(key), QJsonArray{ u"new"_s });
    EXPECT_EQ(holder.wait(), 0);
}

TEST_F(JsonPreferencesHindered, isOverOnceTheFileHoldsTheValue)
{
    const FolderLock theirs(folder.path());
    EXPECT_FALSE(preferences->store.setStringList(key, { u"new"_s }));
    const QByteArray content = R"({ "me.kerno.glimmet.quotes": ["new"] })";
    ASSERT_TRUE(putFile(folder.file(), content));

    preferences->timers.advance(10s);

    EXPECT_EQ(contentOf(folder.file()), content);
    EXPECT_EQ(preferences->log.written(), QByteArray(begun) + over);
    EXPECT_THAT(preferences->timers.running(), IsEmpty());
}

TEST_F(JsonPreferencesHindered, needsNoLockForWhatTheFileHolds)
{
    ASSERT_TRUE(putFile(folder.file(), R"({"me.kerno.glimmet.quotes":["same"]})"));
    const FolderLock theirs(folder.path());

    EXPECT_TRUE(preferences->store.setStringList(key, { u"same"_s }));

    EXPECT_EQ(preferences->log.written(), "");
}

TEST_F(JsonPreferencesHindered, writesOnceFilesCanBeOpenedAgain)
{
    ASSERT_TRUE(preferences->store.setStringList(key, { u"old"_s }));
    for (const int count : { 0, 1 }) { // One is enough for the lock, and not for the file.
        const QString value = u"new %1"_s.arg(count);
        {
            const FewFiles few(count);
            EXPECT_FALSE(preferences->store.setStringList(key, { value }));
            preferences->timers.advance(1min);
            EXPECT_EQ(preferences->store.stringList(key), QStringList{ value });
        }
        EXPECT_NE(inFile(key), QJsonArray{ value });

        preferences->timers.advance(10s);

        EXPECT_EQ(inFile(key), QJsonArray{ value });
    }
    EXPECT_THAT(entriesOf(folder.path()), ElementsAre(u"preferences.json"_s));
}

/// A store whose folder cannot be made while something else has its name.
class JsonPreferencesLateFolder : public testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(putFile(path, "")); }
    void freeTheName() { ASSERT_TRUE(QFile::remove(path)); }
    void putLateFile(const QByteArray &content)
    {
        freeTheName();
        ASSERT_TRUE(QDir().mkpath(path));
        ASSERT_TRUE(putFile(file, content));
    }

    TestFolder folder;
    QString path = folder.path() + u"/home"_s;
    QString file = path + u"/preferences.json"_s;
    TestPreferences preferences{ file };
};

TEST_F(JsonPreferencesLateFolder, isMadeOnceItCanBe)
{
    EXPECT_FALSE(preferences.store.setStringList(key, { u"new"_s }));
    freeTheName();

    preferences.timers.advance(10s);

    EXPECT_EQ(stored(file).value(key), QJsonArray{ u"new"_s });
}

TEST_F(JsonPreferencesLateFolder, keepsTheListsThatComeWithIt)
{
    EXPECT_FALSE(preferences.store.setStringList(key, { u"new"_s }));
    EXPECT_FALSE(preferences.store.setStringList(otherKey, { u"BTC-USD"_s }));
    putLateFile(R"({"glimmet.cryptoSymbols":["AAPL"]})");

    preferences.timers.advance(10s);

    EXPECT_EQ(stored(file),
        (QJsonObject{ { key, QJsonArray{ u"new"_s } }, { otherKey, QJsonArray{ u"AAPL"_s } } }));
    EXPECT_EQ(preferences.store.stringList(otherKey), QStringList{ u"AAPL"_s });
    EXPECT_EQ(preferences.log.written(), QByteArray(begun) + over);
}

TEST_F(JsonPreferencesLateFolder, takesWhatIsSetFromThenOn)
{
    EXPECT_FALSE(preferences.store.setStringList(otherKey, { u"BTC-USD"_s }));
    putLateFile(R"({"glimmet.cryptoSymbols":["AAPL"],"me.kerno.glimmet.quotes":["old"]})");

    EXPECT_TRUE(preferences.store.setStringList(key, { u"new"_s }));

    EXPECT_EQ(stored(file),
        (QJsonObject{ { key, QJsonArray{ u"new"_s } }, { otherKey, QJsonArray{ u"AAPL"_s } } }));
}

} // namespace
} // namespace glimmet
