#include "tests/platform/TestFolder.h"
#include "tests/platform/TestPreferences.h"
#include "tests/support/MemoryPreferences.h"
#include "tests/support/Printing.h"

#include <gtest/gtest.h>

#include <numeric>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;

const QString key = u"me.kerno.glimmet.quotes"_s;
const QString otherKey = u"glimmet.cryptoSymbols"_s;

/// The store in a file, in a folder that does not exist yet.
class FileStore {
public:
    PreferencesStore &store() { return m_preferences.store; }

private:
    TestFolder m_folder;
    TestPreferences m_preferences{ m_folder.path() + u"/a/b/preferences.json"_s };
};

class MemoryStore {
public:
    PreferencesStore &store() { return m_store; }

private:
    MemoryPreferences m_store;
};

/// What every store promises, whether it is a test's or the desktop's.
template <typename Maker> class AnyPreferencesStore : public testing::Test {
protected:
    Maker maker;
    PreferencesStore &store = maker.store();
};

using Stores = testing::Types<FileStore, MemoryStore>;
TYPED_TEST_SUITE(AnyPreferencesStore, Stores);

TYPED_TEST(AnyPreferencesStore, hasNothingAtFirst)
{
    EXPECT_EQ(this->store.stringList(key), std::nullopt);
    EXPECT_EQ(this->store.data(key), std::nullopt);
}

TYPED_TEST(AnyPreferencesStore, returnsTheListOfTextsThatWasSet)
{
    EXPECT_TRUE(this->store.setStringList(key, { u"a"_s, u"b"_s, u"a"_s, u""_s }));

    EXPECT_EQ(this->store.stringList(key), QStringList({ u"a"_s, u"b"_s, u"a"_s, u""_s }));
}

TYPED_TEST(AnyPreferencesStore, tellsAnEmptyListFromNone)
{
    EXPECT_TRUE(this->store.setStringList(key, {}));

    EXPECT_EQ(this->store.stringList(key), QStringList());
    EXPECT_EQ(this->store.stringList(otherKey), std::nullopt);
}

TYPED_TEST(AnyPreferencesStore, keepsAListOfOneAList)
{
    EXPECT_TRUE(this->store.setStringList(key, { u"a"_s }));
    EXPECT_EQ(this->store.stringList(key), QStringList{ u"a"_s });

    EXPECT_TRUE(this->store.setStringList(key, { u""_s }));
    EXPECT_EQ(this->store.stringList(key), QStringList{ u""_s });
}

TYPED_TEST(AnyPreferencesStore, returnsTheBytesThatWereSet)
{
    QByteArray everyByte(256, '\0');
    std::iota(everyByte.begin(), everyByte.end(), '\0');

    for (const QByteArray &bytes : { QByteArray(""), QByteArray("\0", 1), QByteArray("[]"), everyByte }) {
        EXPECT_TRUE(this->store.setData(key, bytes));
        EXPECT_EQ(this->store.data(key), bytes);
    }
}

TYPED_TEST(AnyPreferencesStore, hasNoBytesUnderAListAndNoListUnderBytes)
{
    EXPECT_TRUE(this->store.setStringList(key, { u"a"_s }));
    EXPECT_TRUE(this->store.setData(otherKey, "[\"a\"]"));

    EXPECT_EQ(this->store.data(key), std::nullopt);
    EXPECT_EQ(this->store.stringList(otherKey), std::nullopt);
}

TYPED_TEST(AnyPreferencesStore, replacesAValueByOneOfAnotherType)
{
    EXPECT_TRUE(this->store.setStringList(key, { u"a"_s }));
    EXPECT_TRUE(this->store.setData(key, "b"));
    EXPECT_EQ(this->store.data(key), QByteArray("b"));
    EXPECT_EQ(this->store.stringList(key), std::nullopt);

    EXPECT_TRUE(this->store.setStringList(key, { u"c"_s }));
    EXPECT_EQ(this->store.stringList(key), QStringList{ u"c"_s });
    EXPECT_EQ(this->store.data(key), std::nullopt);
}

TYPED_TEST(AnyPreferencesStore, keepsEachKeyToItself)
{
    EXPECT_TRUE(this->store.setStringList(key, { u"a"_s }));
    EXPECT_TRUE(this->store.setStringList(otherKey, { u"b"_s }));
    EXPECT_TRUE(this->store.setStringList(key, {}));

    EXPECT_EQ(this->store.stringList(otherKey), QStringList{ u"b"_s });
}

TYPED_TEST(AnyPreferencesStore, keepsEveryText)
{
    const QStringList texts{ u"make it count ⚡️"_s, u"build 🛠"_s, u"two\nlines\r\ttab"_s, u"\""_s, u"'"_s,
        u"\\"_s, u"\\\"\\n\\u0041"_s, u"é e\u0301 ثانية 中文"_s, u"\u0000\u0001\u001F\u007F\u2028"_s, u" "_s,
        u"{}[]:,"_s, u"</script>"_s, QString(QChar(0xD83D)), QString(QChar(0xDE00)) + u"x"_s };

    EXPECT_TRUE(this->store.setStringList(key, texts));
    EXPECT_EQ(this->store.stringList(key), texts);
}

TYPED_TEST(AnyPreferencesStore, keepsAHugeList)
{
    QStringList texts;
    for (int i = 0; i < 50'000; ++i)
        texts.append(u"quote number %1 ✦"_s.arg(i));
    texts.append(QString(1'000'000, u'x'));

    EXPECT_TRUE(this->store.setStringList(key, texts));
    EXPECT_EQ(this->store.stringList(key), texts);
}

TYPED_TEST(AnyPreferencesStore, takesAnEqualValueAgain)
{
    EXPECT_TRUE(this->store.setStringList(key, { u"a"_s }));
    EXPECT_TRUE(this->store.setStringList(key, { u"a"_s }));

    EXPECT_EQ(this->store.stringList(key), QStringList{ u"a"_s });
}

} // namespace
} // namespace glimmet
