#include "tests/support/MemoryLoginItem.h"
#include "tests/support/TestWorld.h"
#include "ui/panel/Contrast.h"
#include "ui/panel/GlimmetPanelModule.h"
#include "ui/panel/PanelColors.h"
#include "ui/panel/PanelHost.h"

#include <QInputMethodEvent>
#include <QPointer>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

namespace glimmet {

/// The panel as the program gets it: from the module, in a window of its own.
class PanelWindowTest : public TickerTest {
protected:
    std::unique_ptr<Panel> makePanel(const PanelModule::Options &options = {})
    {
        return GlimmetPanelModule().makePanel(
            ticker, { loginItem, [this] { ++updateChecks; }, [](const QString &) {} }, options);
    }

    MemoryLoginItem loginItem;
    int updateChecks = 0;

    static QQuickView &view(Panel &panel) { return static_cast<QQuickView &>(panel.window()); }
    static void show(Panel &panel)
    {
        panel.window().show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&panel.window()));
    }
    /// The items that `type`.qml made, in the order of painting.
    static QList<QQuickItem *> items(Panel &panel, const QString &type)
    {
        QList<QQuickItem *> found;
        QList<QQuickItem *> rest{ view(panel).rootObject() };
        while (!rest.isEmpty()) {
            QQuickItem *item = rest.takeFirst();
            if (QString::fromLatin1(item->metaObject()->className()).startsWith(type + u"_QMLTYPE"_s))
                found.append(item);
            rest = item->childItems() + rest;
        }
        return found;
    }
    static void click(Panel &panel, const QString &label)
    {
        for (QQuickItem *button : items(panel, u"PlainButton"_s)) {
            if (button->property("text") == label)
                QMetaObject::invokeMethod(button, "clicked");
        }
    }
    static QColor pixel(Panel &panel, QPoint position)
    {
        return view(panel).grabWindow().pixelColor(position);
    }
};

TEST_F(PanelWindowTest, isAFramelessWindowNamedAfterTheProgram)
{
    const auto panel = makePanel();

    ASSERT_NE(panel, nullptr);
    EXPECT_EQ(panel->window().title(), u"glimmet"_s);
    EXPECT_TRUE(panel->window().flags().testFlags(Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint));
    EXPECT_EQ(panel->window().type(), Qt::Window);
    EXPECT_FALSE(panel->window().isVisible());
}

TEST_F(PanelWindowTest, isAsLargeAsThePanel)
{
    const auto panel = makePanel();

    EXPECT_EQ(panel->window().size(), QSize(340, 540));
}

TEST_F(PanelWindowTest, isPaintedInSoftware)
{
    const auto panel = makePanel();
    show(*panel);

    EXPECT_EQ(view(*panel).rendererInterface()->graphicsApi(), QSGRendererInterface::Software);
}

TEST_F(PanelWindowTest, cornersAreSeeThroughWhereACompositorShowsThem)
{
    const auto panel = makePanel({ { ColorScheme::Light }, true });
    show(*panel);

    EXPECT_EQ(panel->window().requestedFormat().alphaBufferSize(), 8);
    EXPECT_EQ(view(*panel).color().alpha(), 0);
    EXPECT_NE(pixel(*panel, { 0, 0 }).rgba(), panelColors(ColorScheme::Light).background.rgba());
    EXPECT_EQ(pixel(*panel, { 170, 5 }).rgba(), panelColors(ColorScheme::Light).background.rgba());
    EXPECT_TRUE(panel->window().mask().isEmpty());
}

TEST_F(PanelWindowTest, cornersAreMaskedWhereThereIsNoCompositor)
{
    const auto panel = makePanel({ { ColorScheme::Light }, false });

    EXPECT_LE(panel->window().requestedFormat().alphaBufferSize(), 0);
    EXPECT_FALSE(panel->window().mask().contains(QPoint(0, 0)));
    EXPECT_TRUE(panel->window().mask().contains(QPoint(170, 539)));
}

TEST_F(PanelWindowTest, theMaskFollowsTheHeight)
{
    const auto panel = makePanel({ { ColorScheme::Light }, false });

    panel->window().resize(340, 400);

    EXPECT_EQ(panel->window().mask().boundingRect(), QRect(0, 0, 340, 400));
    EXPECT_FALSE(panel->window().mask().contains(QPoint(0, 399)));
}

TEST_F(PanelWindowTest, aLowerWindowMakesThePanelLower)
{
    const auto panel = makePanel();
    show(*panel);

    panel->window().resize(340, 400);

    EXPECT_TRUE(QTest::qWaitFor([&] { return view(*panel).rootObject()->height() == 400; }));
}

TEST_F(PanelWindowTest, opensInTheSchemeOfTheDesktop)
{
    const auto panel = makePanel({ { ColorScheme::Dark }, true });
    show(*panel);

    EXPECT_EQ(pixel(*panel, { 170, 5 }).rgba(), panelColors(ColorScheme::Dark).background.rgba());
}

TEST_F(PanelWindowTest, changesItsSchemeWhileItIsOpen)
{
    const auto panel = makePanel({ { ColorScheme::Light }, false });
    show(*panel);

    panel->setLook({ ColorScheme::Dark });

    EXPECT_EQ(pixel(*panel, { 170, 5 }).rgba(), panelColors(ColorScheme::Dark).background.rgba());
    EXPECT_EQ(view(*panel).color(), panelColors(ColorScheme::Dark).background);
}

TEST_F(PanelWindowTest, raisesItsContrastWhileItIsOpen)
{
    const auto panel = makePanel({ { ColorScheme::Light }, false });
    show(*panel);
    const QQuickItem *label = items(*panel, u"SectionLabel"_s).first();
    const QColor quiet = label->property("color").value<QColor>();
    // The line under the header, wherever it is.
    const QQuickItem *line = items(*panel, u"Separator"_s).first();
    const QPoint place = line->mapToScene(QPointF(170, 0)).toPoint();
    const QColor background = panelColors(ColorScheme::Light).background;
    ASSERT_LT(contrast(pixel(*panel, place), background), edgeContrast);

    panel->setLook({ ColorScheme::Light, false, true });

    EXPECT_GT(label->property("color").value<QColor>().alpha(), quiet.alpha());
    EXPECT_GE(contrast(pixel(*panel, place), background), edgeContrast);
    panel->setLook({ ColorScheme::Light });
    EXPECT_EQ(label->property("color").value<QColor>(), quiet);
    EXPECT_LT(contrast(pixel(*panel, place), background), edgeContrast);
}

TEST_F(PanelWindowTest, keepsWhatIsBeingEditedInARowAsItGoes)
{
    ticker.setMode(TickerMode::Quote);
    ticker.setCustomQuotes({ u"alpha"_s, u"beta"_s });
    auto panel = makePanel();
    show(*panel);
    panel->window().requestActivate();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&panel->window()));
    QMetaObject::invokeMethod(items(*panel, u"QuoteRow"_s).first(), "edit");
    QTest::keyClick(&panel->window(), Qt::Key_Z);

    panel.reset();

    EXPECT_EQ(ticker.customQuotes(), (QStringList{ u"z"_s, u"beta"_s }));
}

TEST_F(PanelWindowTest, keepsWhatIsBeingComposedAsItGoes)
{
    ticker.setMode(TickerMode::Custom);
    ticker.setCustomText(u"a"_s);
    auto panel = makePanel();
    show(*panel);
    panel->window().requestActivate();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&panel->window()));
    QQuickItem *field = items(*panel, u"BorderedField"_s).first();
    field->forceActiveFocus();
    field->setProperty("cursorPosition", 1);
    QInputMethodEvent composing(u"にほ"_s, {});
    QCoreApplication::sendEvent(field, &composing);

    panel.reset();

    EXPECT_EQ(ticker.customText(), u"aにほ"_s);
}

TEST_F(PanelWindowTest, escapeClosesIt)
{
    const auto panel = makePanel();
    show(*panel);
    panel->window().requestActivate();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&panel->window()));

    QTest::keyClick(&panel->window(), Qt::Key_Escape);

    EXPECT_TRUE(QTest::qWaitFor([&] { return !panel->window().isVisible(); }));
}

TEST_F(PanelWindowTest, escapeClosesItWhileATextIsEdited)
{
    ticker.setMode(TickerMode::Custom);
    const auto panel = makePanel();
    show(*panel);
    panel->window().requestActivate();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&panel->window()));
    for (int stop = 0; stop < 3; ++stop)
        QTest::keyClick(&panel->window(), Qt::Key_Tab);
    QTest::keyClick(&panel->window(), Qt::Key_A);
    ASSERT_NE(ticker.customText(), u"hello world ✦"_s);

    QTest::keyClick(&panel->window(), Qt::Key_Escape);

    EXPECT_TRUE(QTest::qWaitFor([&] { return !panel->window().isVisible(); }));
}

TEST_F(PanelWindowTest, quitEndsTheProgram)
{
    const auto panel = makePanel();
    show(*panel);
    // Where the button is: its middle is 20 from the right and 22 from the bottom.
    QTimer::singleShot(0, &panel->window(),
        [&panel] { QTest::mouseClick(&panel->window(), Qt::LeftButton, {}, QPoint(340 - 36, 540 - 22)); });
    QTimer::singleShot(10s, qApp, [] { QCoreApplication::exit(1); });

    EXPECT_EQ(QCoreApplication::exec(), 0);
}

TEST_F(PanelWindowTest, asksForUpdatesOnceItIsInFront)
{
    const auto panel = makePanel();
    show(*panel);
    auto *host = view(*panel).rootObject()->property("host").value<PanelHost *>();
    ASSERT_NE(host, nullptr);

    emit host->updateCheckRequested();

    EXPECT_EQ(updateChecks, 0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return updateChecks == 1; }));
    EXPECT_TRUE(QTest::qWaitForWindowActive(&panel->window()));
}

TEST_F(PanelWindowTest, itsEngineGoesWithIt)
{
    auto panel = makePanel();
    const QPointer<QQmlEngine> engine = view(*panel).engine();
    ASSERT_FALSE(engine.isNull());

    panel.reset();

    EXPECT_TRUE(engine.isNull());
}

TEST_F(PanelWindowTest, settingsSurviveItsClosing)
{
    makePanel().reset();
    ticker.setMode(TickerMode::Custom);
    ticker.setCustomText(u"still here"_s);

    const auto panel = makePanel();
    tick();

    EXPECT_EQ(view(*panel).rootObject()->property("ticker").value<TickerViewModel *>(), &ticker);
    EXPECT_EQ(shown(), u"still here"_s);
}

TEST_F(PanelWindowTest, keepsNoSheetNoRevealedKeyAndNoTypedTextAfterItsClosing)
{
    ticker.setMode(TickerMode::Revenue);
    ticker.setRevenueProvider(RevenueProvider::Dodo);
    ticker.setPolarAPIKey(u"pat_1"_s);
    auto panel = makePanel();
    show(*panel);
    items(*panel, u"BorderedField"_s).first()->setProperty("text", u"half a co"_s);
    click(*panel, u"API Keys"_s);
    items(*panel, u"APIKeyField"_s).first()->setProperty("isRevealed", true);
    ASSERT_EQ(items(*panel, u"SecretField"_s).first()->property("displayText"), u"pat_1"_s);

    panel.reset();
    panel = makePanel();
    show(*panel);

    EXPECT_TRUE(items(*panel, u"APIKeysSheet"_s).isEmpty());
    EXPECT_EQ(items(*panel, u"BorderedField"_s).first()->property("text"), u"USD"_s);
    click(*panel, u"API Keys"_s);
    EXPECT_EQ(items(*panel, u"SecretField"_s).first()->property("displayText"), u"•••••"_s);
}

TEST_F(PanelWindowTest, escapeClosesASheetFirst)
{
    ticker.setMode(TickerMode::Revenue);
    const auto panel = makePanel();
    show(*panel);
    panel->window().requestActivate();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&panel->window()));
    click(*panel, u"API Keys"_s);

    QTest::keyClick(&panel->window(), Qt::Key_Escape);
    EXPECT_TRUE(QTest::qWaitFor([&] { return items(*panel, u"APIKeysSheet"_s).isEmpty(); }));
    EXPECT_TRUE(panel->window().isVisible());
    QTest::keyClick(&panel->window(), Qt::Key_Escape);

    EXPECT_TRUE(QTest::qWaitFor([&] { return !panel->window().isVisible(); }));
}

TEST_F(PanelWindowTest, twoPanelsHaveTheirOwnSchemes)
{
    const auto light = makePanel({ { ColorScheme::Light }, true });
    const auto dark = makePanel({ { ColorScheme::Dark }, true });
    show(*light);
    show(*dark);

    EXPECT_EQ(pixel(*light, { 170, 5 }).rgba(), panelColors(ColorScheme::Light).background.rgba());
    EXPECT_EQ(pixel(*dark, { 170, 5 }).rgba(), panelColors(ColorScheme::Dark).background.rgba());
}

} // namespace glimmet
