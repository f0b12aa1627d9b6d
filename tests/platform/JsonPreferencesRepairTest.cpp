#include "tests/platform/FewFiles.h"
#include "tests/platform/TestFolder.h"
#include "tests/platform/TestPreferences.h"
#include "tests/support/Printing.h"

#include <gmock/gmock.h>

#include <sys/stat.h>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;
using testing::ElementsAre;

const QString key = u"me.kerno.glimmet.quotes"_s;

class JsonPreferencesRepair : public testing::Test {
protected:
    /// What was set aside, as paths.
    QStringList setAside() const
    {
        QStringList paths;
        for (const QString &name : entriesOf(folder.path())) {
            if (name.startsWith(u"preferences.json.unreadable-"))
                paths.append(folder.path() + u'/' + name);
        }
        return paths;
    }

    TestFolder folder;
    TestPreferences preferences{ folder.file() };
    JsonPreferencesStore &store = preferences.store;
};

struct Damage {
    const char *name;
    QByteArray content;
};

void PrintTo(const Damage &damage, std::ostream *stream)
{
    *stream << damage.name;
}

class JsonPreferencesDamage : public JsonPreferencesRepair, public testing::WithParamInterface<Damage> {};

TEST_P(JsonPreferencesDamage, isSetAsideBeforeTheFirstWriteAndOnlyThen)
{
    ASSERT_TRUE(putFile(folder.file(), GetParam().content));

    EXPECT_EQ(store.stringList(key), std::nullopt);
    EXPECT_EQ(store.data(key), std::nullopt);
    EXPECT_EQ(contentOf(folder.file()), GetParam().content);
    EXPECT_THAT(entriesOf(folder.path()), ElementsAre(u"preferences.json"_s));

    EXPECT_TRUE(store.setStringList(key, { u"a"_s }));
    EXPECT_EQ(store.stringList(key), QStringList{ u"a"_s });
    ASSERT_EQ(setAside().size(), 1);
    EXPECT_EQ(contentOf(setAside().first()), GetParam().content);

    EXPECT_TRUE(store.setStringList(key, { u"b"_s }));
    EXPECT_EQ(setAside().size(), 1);
}

INSTANTIATE_TEST_SUITE_P(Kinds, JsonPreferencesDamage,
    testing::Values(Damage{ "noJson", "quotes: a, b" }, Damage{ "emptied", "" }, Damage{ "blank", " \n" },
        Damage{ "truncated", R"({"me.kerno.glimmet.quotes":["a","b)" }, Damage{ "arrayOnTop", R"(["a"])" },
        Damage{ "textOnTop", R"("a")" }, Damage{ "nullOnTop", "null" }, Damage{ "twoDocuments", "{}{}" },
        Damage{ "trailingComma", R"({"me.kerno.glimmet.quotes":["a",]})" }, Damage{ "comment", "{} // mine" },
        Damage{ "invalidUtf8", "{\"me.kerno.glimmet.quotes\":[\"a\xFF\"]}" },
        Damage{ "utf16", QByteArray("\xFF\xFE{\0}\0", 6) }, Damage{ "zeros", QByteArray(4096, '\0') },
        Damage{ "tooDeep", QByteArray(5000, '[') }));

TEST_F(JsonPreferencesRepair, readsAFileThatAnEditorGaveAByteOrderMark)
{
    ASSERT_TRUE(putFile(folder.file(), "\xEF\xBB\xBF{\"me.kerno.glimmet.quotes\":[\"a\"],\"other\":1}"));

    EXPECT_EQ(store.stringList(key), QStringList{ u"a"_s });
    EXPECT_TRUE(store.setStringList(key, { u"b"_s }));
    EXPECT_TRUE(contentOf(folder.file()).contains("\"other\": 1"));
    EXPECT_TRUE(setAside().isEmpty());
}

TEST_F(JsonPreferencesRepair, setsAFolderInTheFilesPlaceAside)
{
    ASSERT_TRUE(QDir(folder.path()).mkdir(u"preferences.json"_s));
    ASSERT_TRUE(putFile(folder.file() + u"/kept"_s, "mine"));
    EXPECT_EQ(store.stringList(key), std::nullopt);

    EXPECT_TRUE(store.setStringList(key, { u"a"_s }));

    EXPECT_EQ(store.stringList(key), QStringList{ u"a"_s });
    ASSERT_EQ(setAside().size(), 1);
    EXPECT_EQ(contentOf(setAside().first() + u"/kept"_s), "mine");
}

TEST_F(JsonPreferencesRepair, setsAPipeInTheFilesPlaceAsideWithoutWaitingForIt)
{
    ASSERT_EQ(mkfifo(QFile::encodeName(folder.file()).constData(), 0600), 0);
    EXPECT_EQ(store.stringList(key), std::nullopt);

    EXPECT_TRUE(store.setStringList(key, { u"a"_s }));

    EXPECT_EQ(store.stringList(key), QStringList{ u"a"_s });
    ASSERT_EQ(setAside().size(), 1);
    struct stat info{};
    ASSERT_EQ(stat(QFile::encodeName(setAside().first()).constData(), &info), 0);
    EXPECT_TRUE(S_ISFIFO(info.st_mode));
}

TEST_F(JsonPreferencesRepair, givesEachUnreadableFileANameOfItsOwn)
{
    for (const char *content : { "first", "second", "third" }) {
        ASSERT_TRUE(putFile(folder.file(), content));
        EXPECT_TRUE(store.setStringList(key, { QString::fromLatin1(content) }));
    }

    QByteArrayList contents;
    for (const QString &path : setAside())
        contents.append(contentOf(path));
    EXPECT_THAT(contents, testing::UnorderedElementsAre("first", "second", "third"));
}

TEST_F(JsonPreferencesRepair, setsALinkToAnUnreadableFileAsideAndLeavesTheFile)
{
    const QString target = folder.path() + u"/dotfiles.json"_s;
    ASSERT_TRUE(putFile(target, "damaged"));
    ASSERT_TRUE(QFile::link(target, folder.file()));

    EXPECT_TRUE(store.setStringList(key, { u"a"_s }));

    EXPECT_EQ(contentOf(target), "damaged");
    EXPECT_EQ(store.stringList(key), QStringList{ u"a"_s });
    ASSERT_EQ(setAside().size(), 1);
    EXPECT_EQ(contentOf(setAside().first()), "damaged");
}

TEST_F(JsonPreferencesRepair, leavesAGoodFileAloneThatCannotBeOpenedNow)
{
    ASSERT_TRUE(store.setStringList(key, { u"a"_s }));
    const QByteArray before = contentOf(folder.file());
    {
        const FewFiles onlyTheLock(1);
        EXPECT_FALSE(store.setStringList(key, { u"b"_s }));
    }

    EXPECT_EQ(contentOf(folder.file()), before);
    EXPECT_TRUE(setAside().isEmpty());
}

} // namespace
} // namespace glimmet
