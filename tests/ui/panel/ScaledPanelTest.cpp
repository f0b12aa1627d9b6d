#include "tests/support/MemoryLoginItem.h"
#include "tests/support/TestWorld.h"
#include "ui/panel/GlimmetPanelModule.h"

#include <QGuiApplication>
#include <QPixmap>
#include <QQuickItem>
#include <QQuickView>
#include <QScreen>
#include <QSignalSpy>
#include <QTest>

#include <algorithm>
#include <cmath>

namespace glimmet {
namespace {

/// The greatest difference of any channel of any pixel.
int greatestDifference(const QImage &one, const QImage &other)
{
    if (one.size() != other.size())
        return 256;
    int greatest = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            const QRgb a = one.pixel(x, y);
            const QRgb b = other.pixel(x, y);
            greatest = std::max({ greatest, std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)),
                std::abs(qBlue(a) - qBlue(b)), std::abs(qAlpha(a) - qAlpha(b)) });
        }
    }
    return greatest;
}

/// The panel at whatever scale the tests run: of themselves at 1, in tests of their own at others
/// (QT_SCALE_FACTOR).
class ScaledPanelTest : public TickerTest {
protected:
    enum class Motion { All, None };

    std::unique_ptr<Panel> open(Motion motion = Motion::All, bool isTranslucent = true)
    {
        auto panel = GlimmetPanelModule().makePanel(ticker, { loginItem, [] {}, [](const QString &) {} },
            { look(ColorScheme::Light, motion), isTranslucent });
        panel->window().show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&panel->window()));
        drawFrames(*panel);
        return panel;
    }
    static DesktopLook look(ColorScheme scheme, Motion motion) { return { scheme, motion == Motion::None }; }
    static QQuickView &view(Panel &panel) { return static_cast<QQuickView &>(panel.window()); }
    /// Until what has changed is drawn, and what that changed in turn.
    static void drawFrames(Panel &panel)
    {
        for (int frame = 0; frame < 3; ++frame) {
            QSignalSpy swapped(&view(panel), &QQuickWindow::frameSwapped);
            view(panel).update();
            ASSERT_TRUE(QTest::qWaitFor([&] { return swapped.count() > 0; }));
        }
    }
    static void click(Panel &panel, QPoint place)
    {
        QTest::mouseClick(&panel.window(), Qt::LeftButton, {}, place);
        drawFrames(panel);
    }
    /// What is painted, but for the dot that keeps breathing.
    static QImage withoutDot(Panel &panel)
    {
        QImage picture = view(panel).grabWindow();
        const qreal scale = view(panel).effectiveDevicePixelRatio();
        for (int y = qFloor(30 * scale); y < qCeil(48 * scale); ++y) {
            for (int x = qFloor(105 * scale); x < qCeil(124 * scale); ++x)
                picture.setPixel(x, y, 0);
        }
        return picture;
    }
    /// That the panel comes to look as one that is opened now, first what moves only once, then all of it.
    void expectAsFresh(Panel &panel, ColorScheme scheme = ColorScheme::Light)
    {
        const auto fresh = open(Motion::None);
        fresh->setLook(look(scheme, Motion::None));
        drawFrames(*fresh);
        const QImage expected = withoutDot(*fresh);
        EXPECT_TRUE(QTest::qWaitFor([&] { return withoutDot(panel) == expected; }))
            << "different by " << greatestDifference(withoutDot(panel), expected);

        panel.setLook(look(scheme, Motion::None));
        drawFrames(panel);
        EXPECT_EQ(greatestDifference(view(panel).grabWindow(), view(*fresh).grabWindow()), 0);
    }

    MemoryLoginItem loginItem;
};

TEST_F(ScaledPanelTest, looksAsFreshAfterTicks)
{
    const auto panel = open();
    for (int second = 0; second < 5; ++second) {
        tick();
        drawFrames(*panel);
    }

    expectAsFresh(*panel);
}

TEST_F(ScaledPanelTest, looksAsFreshInEveryModeThatItIsPutInto)
{
    for (const TickerMode mode : { TickerMode::Quote, TickerMode::Custom, TickerMode::Revenue,
             TickerMode::Crypto, TickerMode::Deadline, TickerMode::Clock }) {
        const auto panel = open();

        ticker.chooseMode(mode);

        expectAsFresh(*panel);
    }
}

TEST_F(ScaledPanelTest, looksAsFreshAfterASwitchIsTurned)
{
    const auto panel = open();

    click(*panel, { 100, 407 });

    ASSERT_FALSE(ticker.showSeconds());
    QTest::mouseMove(&panel->window(), { 1, 300 });
    expectAsFresh(*panel);
}

TEST_F(ScaledPanelTest, looksAsFreshAfterThePointerHasPassed)
{
    ticker.setMode(TickerMode::Deadline);
    const auto panel = open();

    for (int y = 20; y < 540; y += 13) {
        QTest::mouseMove(&panel->window(), { 40 + y % 260, y });
        drawFrames(*panel);
    }
    QTest::mouseMove(&panel->window(), { 1, 300 });

    expectAsFresh(*panel);
}

TEST_F(ScaledPanelTest, looksAsFreshAfterTyping)
{
    ticker.setMode(TickerMode::Custom);
    const auto panel = open();
    panel->window().requestActivate();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&panel->window()));
    click(*panel, { 100, 405 });

    for (const Qt::Key key : { Qt::Key_End, Qt::Key_A, Qt::Key_W, Qt::Key_I, Qt::Key_Backspace }) {
        QTest::keyClick(&panel->window(), key);
        drawFrames(*panel);
    }
    view(*panel).activeFocusItem()->setFocus(false);
    tick();

    ASSERT_TRUE(ticker.customText().endsWith(u"aw"_s));
    expectAsFresh(*panel);
}

TEST_F(ScaledPanelTest, looksAsFreshAfterASheetHasGone)
{
    const auto panel = open();

    click(*panel, { 309, 40 });
    click(*panel, { 100, 5 });

    expectAsFresh(*panel);
}

TEST_F(ScaledPanelTest, looksAsFreshInAnotherScheme)
{
    const auto panel = open();

    panel->setLook(look(ColorScheme::Dark, Motion::All));

    expectAsFresh(*panel, ColorScheme::Dark);
}

TEST_F(ScaledPanelTest, restsWhereNothingMoves)
{
    const auto panel = open(Motion::None);
    QSignalSpy swapped(&view(*panel), &QQuickWindow::frameSwapped);

    EXPECT_FALSE(QTest::qWaitFor([&] { return swapped.count() > 0; }, 300));
}

/// The panel on the screen of an X server without a compositor or a window manager.
class PanelOnScreenTest : public ScaledPanelTest {
protected:
    void SetUp() override
    {
        // The tests of the panel also run without any screen, where there is nothing to be seen.
        if (QGuiApplication::platformName() != u"xcb"_s)
            GTEST_SKIP() << "not on an X server";
    }
    /// Nothing else is on it.
    static QImage screen() { return QGuiApplication::primaryScreen()->grabWindow(0).toImage(); }
    /// Opens it in the upper left corner, low enough for the screen at twice its scale.
    std::unique_ptr<Panel> openInCorner()
    {
        auto panel = open(Motion::None, false);
        panel->window().setGeometry(0, 0, 340, 400);
        drawFrames(*panel);
        return panel;
    }
    /// How many of the first pixels of a row show what is behind the panel.
    static int missing(const QImage &picture, int row, QRgb behind)
    {
        int x = 0;
        while (x < picture.width() && picture.pixel(x, row) == behind)
            ++x;
        return x;
    }
};

TEST_F(PanelOnScreenTest, itsCornersAreRoundToThePixel)
{
    const QRgb behind = screen().pixel(0, 0);
    const auto panel = openInCorner();
    ASSERT_TRUE(QTest::qWaitFor([&] { return screen().pixel(40, 40) != behind; }));
    const QImage picture = screen();
    const qreal radius = 14 * panel->window().devicePixelRatio();

    for (int row = 0; row < radius; ++row) {
        const qreal height = std::max(radius - row - 0.5, 0.0);
        const qreal curve = radius - std::sqrt(radius * radius - height * height);
        EXPECT_NEAR(missing(picture, row, behind), curve, 1) << "in row " << row;
    }
}

TEST_F(PanelOnScreenTest, theScreenShowsAllThatIsPainted)
{
    const QRgb behind = screen().pixel(0, 0);
    const auto panel = openInCorner();
    panel->setLook(look(ColorScheme::Light, Motion::All));

    for (const TickerMode mode : { TickerMode::Custom, TickerMode::Revenue, TickerMode::Clock }) {
        ticker.chooseMode(mode);
        drawFrames(*panel);
    }
    panel->setLook(look(ColorScheme::Light, Motion::None));

    const auto visible = [&] {
        QImage painted = view(*panel).grabWindow().convertToFormat(QImage::Format_RGB32);
        const QImage shown = screen().convertToFormat(QImage::Format_RGB32).copy(painted.rect());
        // Of the corners the screen shows what is behind.
        for (int y = 0; y < painted.height(); ++y) {
            for (int x = 0; x < painted.width(); ++x) {
                if (shown.pixel(x, y) == behind)
                    painted.setPixel(x, y, behind);
            }
        }
        return greatestDifference(painted, shown);
    };
    EXPECT_TRUE(QTest::qWaitFor([&] { return visible() == 0; })) << "different by " << visible();
}

} // namespace
} // namespace glimmet
