#include "app/PanelController.h"
#include "app/PanelBackdrop.h"
#include "tests/support/MemoryLoginItem.h"
#include "tests/support/TestWorld.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWindow>

#include <algorithm>

namespace glimmet {
namespace {

/// A panel over a ticker of the test's own. There is no X server to tell of presses, so that the keyboard's
/// going away is all that tells of a click elsewhere.
class PanelControllerTest : public testing::Test {
protected:
    void click() { controller.toggle(std::nullopt); }
    static void takeTheKeyboardAway() { emit qGuiApp->focusWindowChanged(nullptr); }
    /// Opens the panel, and closes it by a click elsewhere once it has settled.
    void openAndClickElsewhere()
    {
        click();
        world.timers.advance(1s);
        takeTheKeyboardAway();
        ASSERT_FALSE(controller.isOpen());
    }

    TestWorld world;
    TickerViewModel ticker{ world.forTicker() };
    MemoryLoginItem loginItem;
    PanelController controller{ ticker, { loginItem, [] {}, [](const QString &) {} }, world.timers,
        world.clock };
};

TEST_F(PanelControllerTest, opensByOneClickAndClosesByTheNext)
{
    click();
    EXPECT_TRUE(controller.isOpen());
    click();
    EXPECT_FALSE(controller.isOpen());
    click();
    EXPECT_TRUE(controller.isOpen());
}

TEST_F(PanelControllerTest, staysOpenWhileTheKeyboardPassesBySoonAfterItsOpening)
{
    click();
    world.timers.advance(400ms);
    takeTheKeyboardAway();
    EXPECT_TRUE(controller.isOpen());

    world.timers.advance(1ms);
    takeTheKeyboardAway();
    EXPECT_FALSE(controller.isOpen());
}

TEST_F(PanelControllerTest, staysOpenWhileADialogOfItsOwnHasTheKeyboard)
{
    click();
    world.timers.advance(1s);
    controller.setHeld(true);
    takeTheKeyboardAway();
    EXPECT_TRUE(controller.isOpen());

    controller.setHeld(false);
    world.timers.advance(2s);
    takeTheKeyboardAway();
    EXPECT_TRUE(controller.isOpen());
    world.timers.advance(1ms);
    takeTheKeyboardAway();
    EXPECT_FALSE(controller.isOpen());
}

TEST_F(PanelControllerTest, isClosedByAPressOfWhichTheShellTells)
{
    controller.pressElsewhere();
    EXPECT_FALSE(controller.isOpen());
    click();

    controller.pressElsewhere();

    EXPECT_FALSE(controller.isOpen());
    click();
    EXPECT_TRUE(controller.isOpen());
}

TEST_F(PanelControllerTest, staysOpenWhereTheShellTellsOfAPressAtADialogOfItsOwn)
{
    click();
    controller.setHeld(true);

    controller.pressElsewhere();

    EXPECT_TRUE(controller.isOpen());
}

TEST_F(PanelControllerTest, isOpenedAtOnceByAClickWithAPressOfItsOwn)
{
    openAndClickElsewhere();
    controller.pressElsewhere();

    click();

    EXPECT_TRUE(controller.isOpen());
}

TEST_F(PanelControllerTest, isClosedByAClickOnTheItemAlsoWhileItIsHeld)
{
    click();
    controller.setHeld(true);

    click();
    EXPECT_FALSE(controller.isOpen());
    EXPECT_EQ(controller.windowId(), 0U);
    controller.setHeld(false);
    EXPECT_FALSE(controller.isOpen());
}

TEST_F(PanelControllerTest, isNotPlacedAnewWhereTheScreensSpaceChangesAsItCloses)
{
    QScreen *const screen = QGuiApplication::primaryScreen();
    click();
    click();
    ASSERT_FALSE(controller.isOpen());

    emit screen->availableGeometryChanged(screen->availableGeometry());
    emit screen->geometryChanged(screen->geometry());

    EXPECT_EQ(controller.windowId(), 0U);
}

TEST_F(PanelControllerTest, closesAtOnceForAnotherWindowOfTheProgram)
{
    QWindow other;
    click();

    emit qGuiApp->focusWindowChanged(&other);

    EXPECT_FALSE(controller.isOpen());
}

TEST_F(PanelControllerTest, isNotOpenedByTheClickThatClosedIt)
{
    openAndClickElsewhere();
    world.timers.advance(700ms);

    click();

    EXPECT_FALSE(controller.isOpen());
}

TEST_F(PanelControllerTest, isOpenedByAClickThatComesTooLateForTheOneThatClosedIt)
{
    openAndClickElsewhere();
    world.timers.advance(701ms);

    click();

    EXPECT_TRUE(controller.isOpen());
}

TEST_F(PanelControllerTest, takesOneClickOnlyForTheOneThatClosedIt)
{
    openAndClickElsewhere();

    click();
    EXPECT_FALSE(controller.isOpen());

    click();
    EXPECT_TRUE(controller.isOpen());
}

TEST_F(PanelControllerTest, isOpenedByAClickSoonAfterItClosedByItself)
{
    click();
    controller.close();

    click();

    EXPECT_TRUE(controller.isOpen());
}

TEST_F(PanelControllerTest, listensForPressesForFiveSecondsAfterItsClosing)
{
    const std::size_t before = world.timers.running().size();
    click();
    EXPECT_EQ(world.timers.running().size(), before);

    click();
    EXPECT_EQ(world.timers.running().back(), 5s);

    world.timers.advance(5s);
    EXPECT_EQ(world.timers.running().size(), before);
}

TEST_F(PanelControllerTest, goesOnListeningWhereItIsOpenedAgain)
{
    click();
    click();
    const std::size_t whileClosed = world.timers.running().size();

    click();

    EXPECT_EQ(world.timers.running().size(), whileClosed - 1);
}

/// A desktop where the X server knows neither the pointer nor presses.
class PanelBeforeABackdrop : public PanelControllerTest {
protected:
    struct Backdrop final : PanelBackdrop {
        explicit Backdrop(PanelBeforeABackdrop &owner)
            : test(owner)
        {
            test.backdrop = this;
        }
        ~Backdrop() override { test.backdrop = nullptr; }
        Q_DISABLE_COPY_MOVE(Backdrop)

        void letThrough(const QRect &place) override { test.hole = place; }
        void setOpen(bool isOpen) override { test.isOpen = isOpen; }

        PanelBeforeABackdrop &test;
    };

    PanelBeforeABackdrop()
    {
        controller.setBackdrops([this] { return std::make_unique<Backdrop>(*this); });
    }

    /// Under a bar of 30 pixels.
    void find(QPoint pointer)
    {
        emit backdrop->pointerFound(QPoint(pointer.x(), std::max(pointer.y(), 30)));
        QCoreApplication::processEvents();
    }
    void takeKeyboard()
    {
        emit backdrop->keyboardTaken();
        QCoreApplication::processEvents();
    }
    void pressBehind()
    {
        emit backdrop->pressed();
        QCoreApplication::processEvents();
    }

    Backdrop *backdrop = nullptr;
    QRect hole;
    bool isOpen = false;
};

TEST_F(PanelBeforeABackdrop, opensWhereThePointerIsFound)
{
    click();
    EXPECT_FALSE(controller.isOpen());
    ASSERT_NE(backdrop, nullptr);

    find({ 400, 30 });

    ASSERT_TRUE(controller.isOpen());
    EXPECT_EQ(hole.x() + hole.width() / 2, 400);
    EXPECT_EQ(hole.top(), 34);
}

TEST_F(PanelBeforeABackdrop, opensAtOnceAtAnItemThatKnowsItsEdge)
{
    controller.toggle(QPoint(500, 26), true);

    ASSERT_TRUE(controller.isOpen());
    EXPECT_EQ(hole.x() + hole.width() / 2, 500);
    EXPECT_EQ(hole.top(), 30);
}

TEST_F(PanelBeforeABackdrop, opensWhereItWasLastIfThePointerIsNotFound)
{
    click();
    find({ 400, 30 });
    const QRect before = hole;
    click();
    ASSERT_FALSE(controller.isOpen());

    click();
    world.timers.advance(599ms);
    EXPECT_FALSE(controller.isOpen());
    world.timers.advance(1ms);

    EXPECT_TRUE(controller.isOpen());
    EXPECT_EQ(hole, before);
}

TEST_F(PanelBeforeABackdrop, opensWithoutAClickWhereItWasLast)
{
    click();
    find({ 400, 30 });
    const QRect before = hole;
    click();

    controller.open(QPoint(10, 10));

    EXPECT_TRUE(controller.isOpen());
    EXPECT_EQ(hole, before);
}

TEST_F(PanelBeforeABackdrop, looksForThePointerOnceForSeveralClicks)
{
    click();
    PanelBackdrop *first = backdrop;
    click();
    EXPECT_EQ(backdrop, first);
    find({ 400, 30 });
    EXPECT_TRUE(controller.isOpen());
}

TEST_F(PanelBeforeABackdrop, closesByAPressOnItAndTakesItAway)
{
    click();
    find({ 400, 30 });

    pressBehind();

    EXPECT_FALSE(controller.isOpen());
    EXPECT_EQ(backdrop, nullptr);
    click();
    find({ 400, 30 });
    EXPECT_TRUE(controller.isOpen());
}

TEST_F(PanelBeforeABackdrop, closesWithAnOutputAndForgetsWhereItWas)
{
    click();
    find({ 400, 30 });
    const QRect before = hole;

    emit backdrop->outputGone();
    QCoreApplication::processEvents();

    EXPECT_FALSE(controller.isOpen());
    EXPECT_EQ(backdrop, nullptr);
    controller.open(QPoint(500, 30));
    EXPECT_NE(hole.x(), before.x());
}

TEST_F(PanelBeforeABackdrop, closesWhereTheCompositorGivesAWindowTheKeyboard)
{
    click();
    takeKeyboard();
    find({ 400, 30 });
    world.timers.advance(400ms);
    takeKeyboard();
    EXPECT_TRUE(controller.isOpen()) << "just opened";
    world.timers.advance(1ms);

    takeKeyboard();

    EXPECT_FALSE(controller.isOpen());
    EXPECT_EQ(backdrop, nullptr);
}

TEST_F(PanelBeforeABackdrop, staysWhereADialogOfItsOwnTakesTheKeyboardAndGivesItBack)
{
    click();
    find({ 400, 30 });
    world.timers.advance(1s);
    controller.setHeld(true);

    takeKeyboard();
    EXPECT_TRUE(controller.isOpen());
    controller.setHeld(false);
    takeKeyboard();

    EXPECT_TRUE(controller.isOpen());
}

TEST_F(PanelBeforeABackdrop, letsPressesThroughToADialogOfItsOwn)
{
    click();
    find({ 400, 30 });
    EXPECT_FALSE(isOpen);

    controller.setHeld(true);
    EXPECT_TRUE(isOpen);
    pressBehind();
    EXPECT_TRUE(controller.isOpen());

    controller.setHeld(false);
    EXPECT_FALSE(isOpen);
}

} // namespace
} // namespace glimmet
