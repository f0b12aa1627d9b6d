#include "tests/platform/TestFolder.h"
#include "tests/platform/TestPreferences.h"
#include "tests/support/Printing.h"

#include <gmock/gmock.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <sys/stat.h>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;
using testing::ElementsAre;

const QString key = u"me.kerno.glimmet.quotes"_s;

mode_t modeOf(const QString &path)
{
    struct stat info{};
    return stat(QFile::encodeName(path).constData(), &info) == 0 ? info.st_mode & 07777 : 0;
}

class JsonPreferencesFile : public testing::Test {
protected:
    QJsonObject object() const { return QJsonDocument::fromJson(contentOf(folder.file())).object(); }
    void put(const QByteArray &content) { ASSERT_TRUE(putFile(folder.file(), content)); }

    TestFolder folder;
    TestPreferences preferences{ folder.file() };
    JsonPreferencesStore &store = preferences.store;
};

TEST_F(JsonPreferencesFile, liesInTheUsersConfigurationFolder)
{
    const QByteArray before = qgetenv("XDG_CONFIG_HOME");
    qputenv("XDG_CONFIG_HOME", "/somewhere/config");
    EXPECT_EQ(JsonPreferencesStore::defaultPath(), u"/somewhere/config/me.kerno.glimmet/preferences.json"_s);
    before.isNull() ? qunsetenv("XDG_CONFIG_HOME") : qputenv("XDG_CONFIG_HOME", before);
}

TEST_F(JsonPreferencesFile, holdsAListAsAnArrayAndDataAsBase64)
{
    store.setStringList(key, { u"a"_s, u"ü"_s });
    store.setData(u"d"_s, "[]\xFF");

    EXPECT_EQ(object(),
        (QJsonObject{
            { key, QJsonArray{ u"a"_s, u"ü"_s } }, { u"d"_s, QJsonObject{ { u"data"_s, u"W13/"_s } } } }));
}

TEST_F(JsonPreferencesFile, isNotMadeByReading)
{
    EXPECT_EQ(store.stringList(key), std::nullopt);
    EXPECT_EQ(store.data(key), std::nullopt);

    EXPECT_TRUE(entriesOf(folder.path()).isEmpty());
}

TEST_F(JsonPreferencesFile, isAllThatAWriteLeavesInItsFolder)
{
    for (int i = 0; i < 5; ++i)
        store.setStringList(key, { QString::number(i) });

    EXPECT_THAT(entriesOf(folder.path()), ElementsAre(u"preferences.json"_s));
}

TEST_F(JsonPreferencesFile, keepsTheKeysOfOthers)
{
    put(R"({"zebra":{"a":[1,2.5,null,true,"x",{"b":9007199254740993}]},"alpha":"text","none":null})");
    const QJsonObject before = object();

    store.setStringList(key, { u"a"_s });

    QJsonObject expected = before;
    expected.insert(key, QJsonArray{ u"a"_s });
    EXPECT_EQ(object(), expected);
    EXPECT_TRUE(contentOf(folder.file()).contains("9007199254740993"));
}

TEST_F(JsonPreferencesFile, showsAtOnceWhatAnotherProgramWrote)
{
    store.setStringList(key, { u"a"_s });
    put(R"({"me.kerno.glimmet.quotes":["b"]})");

    EXPECT_EQ(store.stringList(key), QStringList{ u"b"_s });
}

TEST_F(JsonPreferencesFile, isWrittenAnewWhereTheValueWasTakenAway)
{
    store.setStringList(key, { u"a"_s });
    ASSERT_TRUE(QFile::remove(folder.file()));

    EXPECT_TRUE(store.setStringList(key, { u"a"_s }));
    EXPECT_EQ(store.stringList(key), QStringList{ u"a"_s });
}

TEST_F(JsonPreferencesFile, isForTheUserAloneWhenItIsNew)
{
    const mode_t mask = umask(0);
    store.setStringList(key, { u"a"_s });
    umask(mask);

    EXPECT_EQ(modeOf(folder.file()), 0600U);
}

TEST_F(JsonPreferencesFile, keepsItsMode)
{
    put("{}");
    ASSERT_EQ(chmod(QFile::encodeName(folder.file()).constData(), 0640), 0);

    EXPECT_TRUE(store.setStringList(key, { u"a"_s }));
    EXPECT_EQ(modeOf(folder.file()), 0640U);
}

TEST_F(JsonPreferencesFile, staysASymbolicLink)
{
    const QString target = folder.path() + u"/dotfiles.json"_s;
    ASSERT_TRUE(putFile(target, R"({"other":1})"));
    ASSERT_TRUE(QFile::link(u"dotfiles.json"_s, folder.file()));

    EXPECT_TRUE(store.setStringList(key, { u"a"_s }));

    EXPECT_TRUE(QFileInfo(folder.file()).isSymLink());
    EXPECT_FALSE(QFileInfo(target).isSymLink());
    EXPECT_EQ(QJsonDocument::fromJson(contentOf(target)).object().value(u"other"), QJsonValue(1));
    EXPECT_EQ(store.stringList(key), QStringList{ u"a"_s });
    EXPECT_THAT(entriesOf(folder.path()), ElementsAre(u"dotfiles.json"_s, u"preferences.json"_s));
}

TEST_F(JsonPreferencesFile, isMadeWhereALinkPointsAndNothingIsYet)
{
    const QString target = folder.path() + u"/dotfiles.json"_s;
    ASSERT_TRUE(QFile::link(target, folder.file()));
    EXPECT_EQ(store.stringList(key), std::nullopt);

    EXPECT_TRUE(store.setStringList(key, { u"a"_s }));

    EXPECT_TRUE(QFileInfo(folder.file()).isSymLink());
    EXPECT_TRUE(QFileInfo(target).isFile());
    EXPECT_EQ(store.stringList(key), QStringList{ u"a"_s });
}

TEST_F(JsonPreferencesFile, leavesALinkIntoAMissingFolderAlone)
{
    ASSERT_TRUE(QFile::link(folder.path() + u"/unmounted/dotfiles.json"_s, folder.file()));

    EXPECT_FALSE(store.setStringList(key, { u"a"_s }));
    EXPECT_TRUE(QFileInfo(folder.file()).isSymLink());
    EXPECT_THAT(entriesOf(folder.path()), ElementsAre(u"preferences.json"_s));
}

TEST_F(JsonPreferencesFile, losesWhatAKilledWriterLeftAndNothingElse)
{
    const QString leftover = folder.file() + u".replacing-a1B2c3"_s;
    const QStringList others{ folder.file() + u".backup"_s, folder.file() + u".unreadable-20260504-080507"_s,
        folder.path() + u"/other.json.replacing-a1B2c3"_s };
    ASSERT_TRUE(putFile(leftover, "{"));
    for (const QString &other : others)
        ASSERT_TRUE(putFile(other, "mine"));

    EXPECT_TRUE(store.setStringList(key, { u"a"_s }));

    EXPECT_FALSE(QFileInfo::exists(leftover));
    for (const QString &other : others)
        EXPECT_EQ(contentOf(other), "mine") << other.toStdString();
}

TEST_F(JsonPreferencesFile, cannotBeMadeBelowAFile)
{
    ASSERT_TRUE(putFile(folder.path() + u"/blocker"_s, "mine"));
    TestPreferences below(folder.path() + u"/blocker/preferences.json"_s);

    EXPECT_FALSE(below.store.setStringList(key, { u"a"_s }));
    EXPECT_EQ(contentOf(folder.path() + u"/blocker"_s), "mine");
}

class JsonPreferencesWrongType : public testing::TestWithParam<const char *> {
protected:
    TestFolder folder;
    TestPreferences preferences{ folder.file() };
    JsonPreferencesStore &store = preferences.store;
};

TEST_P(JsonPreferencesWrongType, readsAsAbsent)
{
    ASSERT_TRUE(putFile(folder.file(), R"({"k":)" + QByteArray(GetParam()) + '}'));

    EXPECT_EQ(store.stringList(u"k"_s), std::nullopt);
    EXPECT_EQ(store.data(u"k"_s), std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(Values, JsonPreferencesWrongType,
    testing::Values("null", "1", "1.5", "true", R"("text")", R"("")", "{}", R"([1])", R"(["a",1])",
        R"(["a",null])", R"([["a"]])", R"([{"data":"YQ=="}])", R"({"data":1})", R"({"data":null})",
        R"({"data":["YQ=="]})", R"({"data":"not base64!"})", R"({"Data":"YQ=="})",
        R"({"data":"YQ==","more":1})"));

} // namespace
} // namespace glimmet
