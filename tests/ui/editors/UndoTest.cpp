#include "core/PreferencesKeys.h"
#include "tests/support/TestWorld.h"
#include "ui/editors/DeadlineUndo.h"
#include "ui/editors/TextListUndo.h"

#include <QSignalSpy>
#include <QTest>

namespace glimmet {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class QuoteUndoTest : public TickerTest {
protected:
    QuoteUndoTest()
    {
        ticker.setCustomQuotes({ u"a"_s, u"b"_s, u"c"_s });
        undo.setTicker(&ticker);
    }

    QuoteUndo undo;
};

TEST_F(QuoteUndoTest, removesAtOnceAndPutsBack)
{
    undo.remove(u"b"_s);
    EXPECT_THAT(ticker.customQuotes(), ElementsAre(u"a"_s, u"c"_s));
    EXPECT_THAT(undo.shown(), ElementsAre(u"a"_s, u"b"_s, u"c"_s));
    EXPECT_THAT(undo.removed(), ElementsAre(u"b"_s));
    EXPECT_THAT(undo.removedRows(), ElementsAre(1));
    EXPECT_THAT(undo.places(), ElementsAre(0, 2));
    EXPECT_EQ(undo.news(), u"Removed b. Ctrl+Z brings it back."_s);

    undo.undo();

    EXPECT_THAT(ticker.customQuotes(), ElementsAre(u"a"_s, u"b"_s, u"c"_s));
    EXPECT_FALSE(undo.canUndo());
    EXPECT_EQ(undo.news(), QString());
}

TEST_F(QuoteUndoTest, offersNothingWhereNothingWentAway)
{
    undo.remove(u"x"_s);

    EXPECT_FALSE(undo.canUndo());
}

TEST_F(QuoteUndoTest, keepsWhatWasRemovedMeanwhileAway)
{
    undo.remove(u"b"_s);
    ticker.removeQuote(u"a"_s);

    undo.putBack(u"b"_s);

    EXPECT_THAT(ticker.customQuotes(), ElementsAre(u"b"_s, u"c"_s));
}

TEST_F(QuoteUndoTest, putsEqualOnesBackTogether)
{
    ticker.setCustomQuotes({ u"a"_s, u"b"_s, u"a"_s });
    undo.remove(u"a"_s);
    ASSERT_THAT(ticker.customQuotes(), ElementsAre(u"b"_s));

    undo.putBack(u"a"_s);

    EXPECT_THAT(ticker.customQuotes(), ElementsAre(u"a"_s, u"b"_s, u"a"_s));
}

TEST_F(QuoteUndoTest, putsAClearedListBackBesideWhatIsNew)
{
    undo.clear();
    EXPECT_TRUE(undo.canUndoClearing());
    EXPECT_TRUE(undo.isEmpty());
    EXPECT_THAT(undo.shown(), IsEmpty());
    ticker.addQuote(u"x"_s);

    undo.undoClearing();

    EXPECT_THAT(ticker.customQuotes(), ElementsAre(u"a"_s, u"b"_s, u"c"_s, u"x"_s));
    EXPECT_FALSE(undo.canUndoClearing());
}

TEST_F(QuoteUndoTest, offersForAWhileOnly)
{
    undo.setDuration(20);
    undo.remove(u"b"_s);
    ASSERT_TRUE(undo.canUndo());

    ASSERT_TRUE(QTest::qWaitFor([this] { return !undo.canUndo(); }));

    EXPECT_THAT(undo.shown(), ElementsAre(u"a"_s, u"c"_s));
    undo.undo();
    EXPECT_THAT(ticker.customQuotes(), ElementsAre(u"a"_s, u"c"_s));
}

TEST_F(QuoteUndoTest, tellsTheRowsBeforeItTellsWhatBecameOfThem)
{
    undo.setDuration(20);
    undo.remove(u"b"_s);
    QStringList shownLast;
    QObject::connect(&undo, &Undo::offersChanged, [&] { EXPECT_EQ(shownLast, undo.shown()); });
    QObject::connect(&undo, &Undo::shownChanged, [&] { shownLast = undo.shown(); });

    EXPECT_TRUE(QTest::qWaitFor([&] { return !undo.canUndo(); }));
    EXPECT_THAT(shownLast, ElementsAre(u"a"_s, u"c"_s));
}

TEST_F(QuoteUndoTest, outlivedByItsOfferLeavesTheListAlone)
{
    auto other = std::make_unique<QuoteUndo>();
    other->setTicker(&ticker);
    other->setDuration(0);
    other->remove(u"b"_s);

    other.reset();
    QCoreApplication::processEvents();

    EXPECT_THAT(ticker.customQuotes(), ElementsAre(u"a"_s, u"c"_s));
}

TEST_F(TickerTest, aSymbolIsPutBackInUpperAndLowerCaseAsItWas)
{
    ticker.setCryptoSymbols({ u"eth-USD"_s, u"BTC"_s });
    SymbolUndo undo;
    undo.setTicker(&ticker);
    undo.remove(u"eth-USD"_s);

    undo.undo();

    EXPECT_THAT(ticker.cryptoSymbols(), ElementsAre(u"eth-USD"_s, u"BTC"_s));
}

class DeadlineUndoTest : public TickerTest {
protected:
    DeadlineUndoTest() { undo.setTicker(&ticker); }

    QString keyAt(int index) const { return DeadlineUndo::keyOf(ticker.deadlines().at(index)); }

    DeadlineUndo undo;
};

TEST_F(DeadlineUndoTest, putsTheVeryDeadlineBack)
{
    const QList<Deadline> before{ world.deadline(u"late"_s, 300), world.deadline(u"soon"_s, 10) };
    ticker.setDeadlines(before);
    undo.remove(keyAt(0));
    EXPECT_EQ(undo.news(), u"Removed late. Ctrl+Z brings it back."_s);
    EXPECT_EQ(undo.shownDeadlines(), before);

    undo.undo();

    EXPECT_EQ(ticker.deadlines(), before);
    const auto stored = world.preferences.data(PreferencesKeys::deadlines);
    ASSERT_TRUE(stored.has_value());
    EXPECT_EQ(deadlinesFromJson(*stored), before);
}

TEST_F(DeadlineUndoTest, putsItBackByItsDateWhereTheListGoesByDates)
{
    const Deadline first = world.deadline(u"first"_s, 10);
    const Deadline third = world.deadline(u"third"_s, 30);
    ticker.setDeadlines({ first, third });
    undo.remove(DeadlineUndo::keyOf(third));
    const Deadline second = world.deadline(u"second"_s, 20);
    ticker.addDeadline(second);

    undo.undo();

    EXPECT_THAT(ticker.deadlines(), ElementsAre(first, second, third));
}

TEST_F(DeadlineUndoTest, leavesDeadlinesOfOneIdentityAsTheyAre)
{
    Deadline one = world.deadline(u"one"_s, 10);
    Deadline twin = world.deadline(u"twin"_s, 20);
    twin.id = one.id;
    const Deadline other = world.deadline(u"other"_s, 30);
    ticker.setDeadlines({ one, twin, other });
    undo.remove(DeadlineUndo::keyOf(other));

    undo.undo();

    EXPECT_THAT(ticker.deadlines(), ElementsAre(one, twin, other));
}

TEST_F(DeadlineUndoTest, putsDeadlinesOfOneIdentityBackAsTheyWere)
{
    const Deadline one = world.deadline(u"one"_s, 10);
    Deadline twin = world.deadline(u"twin"_s, 30);
    twin.id = one.id;
    const Deadline other = world.deadline(u"other"_s, 20);
    const QList<Deadline> before{ one, other, twin };
    ticker.setDeadlines(before);

    undo.remove(DeadlineUndo::keyOf(one));
    EXPECT_THAT(ticker.deadlines(), ElementsAre(other));
    EXPECT_EQ(undo.shownDeadlines(), before);
    undo.undo();
    EXPECT_EQ(ticker.deadlines(), before);

    undo.clear();
    undo.undo();
    EXPECT_EQ(ticker.deadlines(), before);
}

} // namespace
} // namespace glimmet
