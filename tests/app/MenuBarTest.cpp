#include "app/MenuBar.h"
#include "tests/support/ManualTimers.h"
#include "tests/support/Printing.h"

#include <QSignalSpy>

#include <gmock/gmock.h>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

/// A host that a test can take away.
class FakeHost final : public MenuBarHost {
public:
    FakeHost(const QString &hostName, bool isThere)
        : name(hostName)
        , available(isThere)
    {
    }

    bool isAvailable() const override { return available; }
    bool isSeen() const override { return isSymbolThere || available; }
    bool knowsEdge() const override { return available; }
    QString place() const override { return name; }
    void setText(const QString &line) override { text = line; }
    void setShown(bool nowShown) override { shown = nowShown; }
    void setOutranked(bool now) override { outranked = now; }
    void setColorScheme(ColorScheme now) override { scheme = now; }
    std::optional<QPoint> anchor() const override { return QPoint(static_cast<int>(name.size()), 0); }

    void setAvailable(bool now)
    {
        available = now;
        emit availabilityChanged();
    }

    QString name;
    bool available;
    bool isSymbolThere = false;
    QString text;
    bool shown = false;
    bool outranked = false;
    ColorScheme scheme = ColorScheme::Light;
};

/// Three places, of which only the last one is there at first.
class MenuBarTest : public testing::Test {
protected:
    MenuBar::Hosts hosts()
    {
        MenuBar::Hosts all;
        for (FakeHost *host : { first, second, last })
            all.emplace_back(host);
        return all;
    }
    QStringList shown() const
    {
        QStringList names;
        for (const FakeHost *host : { first, second, last }) {
            if (host->shown)
                names.append(host->name);
        }
        return names;
    }

    ManualClock clock;
    ManualTimers timers{ clock };
    FakeHost *first = new FakeHost(u"a first"_s, false);
    FakeHost *second = new FakeHost(u"a second one"_s, false);
    FakeHost *last = new FakeHost(u"a last"_s, true);
    MenuBar bar{ hosts(), timers };
    QSignalSpy moves{ &bar, &MenuBar::moved };
};

TEST_F(MenuBarTest, showsInTheFirstPlaceAtOnce)
{
    first->setAvailable(true);

    EXPECT_EQ(shown(), QStringList{ u"a first"_s });
    EXPECT_EQ(moves, (QList<QVariantList>{ { u"shown as a first"_s } }));
    timers.advance(1min);
    EXPECT_EQ(moves.count(), 1);
}

TEST_F(MenuBarTest, waitsBeforeItShowsInTheLastPlace)
{
    timers.advance(4999ms);
    EXPECT_EQ(shown(), QStringList());

    timers.advance(1ms);
    EXPECT_EQ(shown(), QStringList{ u"a last"_s });
    EXPECT_EQ(moves, (QList<QVariantList>{ { u"shown as a last"_s } }));
}

TEST_F(MenuBarTest, takesTheBestOfThePlacesThatThereAre)
{
    timers.advance(5s);
    EXPECT_EQ(shown(), QStringList{ u"a last"_s });

    second->setAvailable(true);
    EXPECT_EQ(shown(), QStringList{ u"a second one"_s });

    first->setAvailable(true);
    EXPECT_EQ(shown(), QStringList{ u"a first"_s });
}

TEST_F(MenuBarTest, doesNotFlashUpElsewhereWhileThePlaceIsGoneForAMoment)
{
    first->setAvailable(true);
    first->setAvailable(false);
    timers.advance(4s);
    first->setAvailable(true);
    timers.advance(10s);

    EXPECT_EQ(shown(), QStringList{ u"a first"_s });
}

TEST_F(MenuBarTest, waitsAnewWithEachChange)
{
    first->setAvailable(true);
    first->setAvailable(false);
    timers.advance(3s);
    first->setAvailable(true);
    first->setAvailable(false);
    timers.advance(3s);
    EXPECT_EQ(shown(), QStringList{ u"a first"_s });

    timers.advance(2s);
    EXPECT_EQ(shown(), QStringList{ u"a last"_s });
}

TEST_F(MenuBarTest, takesTheNextBestPlaceAtOnce)
{
    second->setAvailable(true);
    first->setAvailable(true);
    EXPECT_EQ(shown(), QStringList{ u"a first"_s });

    first->setAvailable(false);

    EXPECT_EQ(shown(), QStringList{ u"a second one"_s });
}

TEST_F(MenuBarTest, tellsWhoComesBehindThePlaceOfTheText)
{
    second->setAvailable(true);
    EXPECT_FALSE(first->outranked);
    EXPECT_FALSE(second->outranked);
    EXPECT_TRUE(last->outranked);

    first->setAvailable(true);
    EXPECT_TRUE(second->outranked);

    first->setAvailable(false);
    EXPECT_FALSE(second->outranked);
}

TEST_F(MenuBarTest, tellsOfAPlaceOnlyWhereTheTextMovesToIt)
{
    first->setAvailable(true);
    second->setAvailable(true);
    second->setAvailable(false);

    EXPECT_EQ(moves.count(), 1);
}

TEST_F(MenuBarTest, tellsEveryPlaceTheCleanedTextAndTheLook)
{
    bar.setText(u"one\ntwo"_s);
    bar.setColorScheme(ColorScheme::Dark);

    for (const FakeHost *host : { first, second, last }) {
        EXPECT_EQ(host->text, u"one two"_s);
        EXPECT_EQ(host->scheme, ColorScheme::Dark);
    }
}

TEST_F(MenuBarTest, handsOnWhatIsClickedAnywhere)
{
    QSignalSpy clicks(&bar, &MenuBar::clicked);
    QSignalSpy presses(&bar, &MenuBar::pressedElsewhere);
    QSignalSpy openings(&bar, &MenuBar::openChosen);
    QSignalSpy quits(&bar, &MenuBar::quitChosen);

    emit last->clicked();
    emit first->pressedElsewhere();
    emit second->openChosen();
    emit first->quitChosen();

    EXPECT_EQ(clicks.count(), 1);
    EXPECT_EQ(presses.count(), 1);
    EXPECT_EQ(openings.count(), 1);
    EXPECT_EQ(quits.count(), 1);
}

TEST_F(MenuBarTest, dropsThePanelFromASymbolThatWasClickedBesideTheText)
{
    QSignalSpy clicks(&bar, &MenuBar::clicked);
    first->isSymbolThere = true;

    emit first->clicked();

    EXPECT_EQ(clicks.last(), QVariantList({ QVariant::fromValue(first->anchor()), false }));
}

TEST_F(MenuBarTest, opensThePanelAtASymbolWhoseMenuWasBesideTheText)
{
    QSignalSpy openings(&bar, &MenuBar::openChosen);
    first->isSymbolThere = true;

    emit first->openChosen();

    EXPECT_EQ(openings.last(), QVariantList({ QVariant::fromValue(first->anchor()) }));
}

TEST_F(MenuBarTest, dropsThePanelFromTheTextWhereAKeyClicksWhatIsNotThere)
{
    QSignalSpy clicks(&bar, &MenuBar::clicked);

    emit first->clicked();

    EXPECT_EQ(clicks.last(), QVariantList({ QVariant::fromValue(last->anchor()), true }));
}

TEST_F(MenuBarTest, dropsThePanelFromTheBestPlace)
{
    EXPECT_EQ(bar.anchor(), QPoint(6, 0));
    second->setAvailable(true);
    EXPECT_EQ(bar.anchor(), QPoint(12, 0));
}

} // namespace
} // namespace glimmet
