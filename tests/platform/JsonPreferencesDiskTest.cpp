#include "tests/platform/PrivateMounts.h"
#include "tests/platform/TestFolder.h"
#include "tests/platform/TestPreferences.h"
#include "tests/support/Printing.h"

#include <gmock/gmock.h>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;
using testing::ElementsAre;

const QString key = u"me.kerno.glimmet.quotes"_s;

/// A store on a file system that can be full or read-only.
class JsonPreferencesDisk : public testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(disk.isMounted()); }

    TinyDisk disk{ 256 * 1024 };
    QString file = disk.path() + u"/preferences.json"_s;
    TestPreferences preferences{ file };
    JsonPreferencesStore &store = preferences.store;
    QStringList longList = QStringList(2000, u"a quote that takes some room"_s);
};

TEST_F(JsonPreferencesDisk, keepsTheOldFileWhenFull)
{
    ASSERT_TRUE(store.setStringList(key, { u"a"_s }));
    const QByteArray before = contentOf(file);
    disk.fillUp();

    EXPECT_FALSE(store.setStringList(key, { u"b"_s }));

    EXPECT_EQ(contentOf(file), before);
    EXPECT_THAT(entriesOf(disk.path()), ElementsAre(u"fill"_s, u"preferences.json"_s));
}

TEST_F(JsonPreferencesDisk, keepsTheOldFileWhenTheNewOneFitsOnlyInPart)
{
    disk.fillUp();
    disk.removeFill();
    ASSERT_TRUE(store.setStringList(key, longList));
    const QByteArray before = contentOf(file);
    ASSERT_GT(before.size(), 64 * 1024);

    EXPECT_FALSE(store.setStringList(key, longList + longList + longList + longList));

    EXPECT_EQ(contentOf(file), before);
    EXPECT_THAT(entriesOf(disk.path()), ElementsAre(u"preferences.json"_s));
}

TEST_F(JsonPreferencesDisk, holdsNoEmptyFileAfterAFirstWriteWhenFull)
{
    disk.fillUp();

    EXPECT_FALSE(store.setStringList(key, { u"a"_s }));

    EXPECT_THAT(entriesOf(disk.path()), ElementsAre(u"fill"_s));
}

TEST_F(JsonPreferencesDisk, keepsAnUnreadableFilesContentWhenFull)
{
    ASSERT_TRUE(putFile(file, "mine"));
    disk.fillUp();

    EXPECT_FALSE(store.setStringList(key, { u"a"_s }));

    const QStringList entries = entriesOf(disk.path());
    ASSERT_EQ(entries.size(), 2);
    EXPECT_EQ(contentOf(disk.path() + u'/' + entries.last()), "mine");
}

TEST_F(JsonPreferencesDisk, takesWritesAgainOnceThereIsRoom)
{
    disk.fillUp();
    EXPECT_FALSE(store.setStringList(key, { u"a"_s }));
    disk.removeFill();

    EXPECT_TRUE(store.setStringList(key, { u"a"_s }));
    EXPECT_EQ(store.stringList(key), QStringList{ u"a"_s });
}

TEST_F(JsonPreferencesDisk, isReadButNotWrittenWhenReadOnly)
{
    ASSERT_TRUE(store.setStringList(key, { u"a"_s }));
    const QByteArray before = contentOf(file);
    disk.makeReadOnly();

    EXPECT_EQ(store.stringList(key), QStringList{ u"a"_s });
    EXPECT_FALSE(store.setStringList(key, { u"b"_s }));

    EXPECT_EQ(contentOf(file), before);
    EXPECT_THAT(entriesOf(disk.path()), ElementsAre(u"preferences.json"_s));
}

TEST_F(JsonPreferencesDisk, leavesAnUnreadableFileInItsPlaceWhenReadOnly)
{
    ASSERT_TRUE(putFile(file, "mine"));
    disk.makeReadOnly();

    EXPECT_FALSE(store.setStringList(key, { u"a"_s }));

    EXPECT_EQ(contentOf(file), "mine");
    EXPECT_THAT(entriesOf(disk.path()), ElementsAre(u"preferences.json"_s));
}

} // namespace
} // namespace glimmet
