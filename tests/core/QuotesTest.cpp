#include "core/Quotes.h"
#include "core/DefaultQuotes.h"
#include "core/PreferencesKeys.h"
#include "tests/support/MemoryPreferences.h"
#include "tests/support/Printing.h"

#include <QSignalSpy>

#include <gmock/gmock.h>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

const QString key = PreferencesKeys::quotes;

class QuotesTest : public testing::Test {
protected:
    void tick(int count)
    {
        for (int i = 0; i < count; ++i)
            quotes.tick();
    }

    MemoryPreferences preferences;
    Quotes quotes{ preferences };
    QSignalSpy changes{ &quotes, &Quotes::customChanged };
};

TEST_F(QuotesTest, areTheDefaultOnesWhileThereAreNoneOfTheUsers)
{
    EXPECT_EQ(quotes.active(), defaultQuotes());
    EXPECT_EQ(quotes.display(), defaultQuotes().first());

    quotes.setCustom({ u"one"_s });
    EXPECT_EQ(quotes.active(), QStringList{ u"one"_s });

    quotes.reset();
    EXPECT_EQ(quotes.active(), defaultQuotes());
}

TEST_F(QuotesTest, takeOverWhatIsStored)
{
    preferences.setStringList(key, { u"one"_s, u"two"_s });

    quotes.load();

    EXPECT_EQ(quotes.custom(), QStringList({ u"one"_s, u"two"_s }));
}

TEST_F(QuotesTest, storeNothingWhereNothingIsStored)
{
    quotes.load();

    EXPECT_THAT(preferences.writes(), IsEmpty());
    EXPECT_EQ(changes.count(), 0);
}

TEST_F(QuotesTest, areStoredAlsoWhereTheyAreEqualAndTellOnlyOfAChange)
{
    quotes.setCustom({ u"one"_s });
    quotes.setCustom({ u"one"_s });

    EXPECT_THAT(preferences.writes(), ElementsAre(key, key));
    EXPECT_EQ(changes.count(), 1);
}

TEST_F(QuotesTest, growByATrimmedQuoteThatIsNew)
{
    quotes.add(u"  one "_s);
    EXPECT_EQ(preferences.stringList(key), QStringList{ u"one"_s });

    preferences.forgetWrites();
    quotes.add(u"one"_s);
    quotes.add(u"   "_s);
    EXPECT_THAT(preferences.writes(), IsEmpty());
}

TEST_F(QuotesTest, loseEveryQuoteOfThatText)
{
    quotes.setCustom({ u"one"_s, u"two"_s, u"one"_s });

    quotes.remove(u"one"_s);

    EXPECT_EQ(preferences.stringList(key), QStringList{ u"two"_s });
}

TEST_F(QuotesTest, turnAfterAsManyTicksAsAQuoteStays)
{
    quotes.setCustom({ u"one"_s, u"two"_s });
    quotes.setRotateInterval(3);

    tick(2);
    EXPECT_EQ(quotes.display(), u"one"_s);
    tick(1);
    EXPECT_EQ(quotes.display(), u"two"_s);
    tick(3);
    EXPECT_EQ(quotes.display(), u"one"_s);
}

TEST_F(QuotesTest, tellOfAnotherIntervalOnce)
{
    QSignalSpy intervals(&quotes, &Quotes::rotateIntervalChanged);

    quotes.setRotateInterval(5);
    quotes.setRotateInterval(5);

    EXPECT_EQ(intervals.count(), 1);
    EXPECT_EQ(quotes.rotateInterval(), 5);
    EXPECT_THAT(preferences.writes(), IsEmpty());
}

} // namespace
} // namespace glimmet
