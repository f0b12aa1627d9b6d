#include "platform/updates/UpdateState.h"
#include "tests/support/Printing.h"
#include "tests/ui/panel/PanelDescription.h"
#include "ui/panel/Contrast.h"
#include "ui/panel/GlimmetPanelModule.h"
#include "ui/panel/PanelColors.h"

#include <QPointer>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>
#include <QTest>

#include <gtest/gtest.h>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;

/// The window as the program gets it.
class UpdateWindowTest : public testing::Test {
protected:
    void open(const UpdateState &state = { .phase = UpdatePhase::Checking, .isCancellable = true },
        ColorScheme scheme = ColorScheme::Light)
    {
        GlimmetPanelModule module;
        const auto noting = [this](const QString &answer) { return [this, answer] { answers << answer; }; };
        shown = module.makeUpdateWindow(
            state, { noting(u"install"_s), noting(u"restart"_s), noting(u"cancel"_s) }, { scheme });
        shown->window().show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&shown->window()));
        shown->window().requestActivate();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&shown->window()));
    }
    void press(Qt::Key key) { QTest::keyClick(&shown->window(), key); }
    QQuickView &view() const { return static_cast<QQuickView &>(shown->window()); }

    const UpdateState found{ UpdatePhase::Found, u"1.0"_s, u"1.1"_s };
    QStringList answers;
    std::unique_ptr<UpdatePanel> shown;
};

TEST_F(UpdateWindowTest, hasATitleAndTheSizeOfItsWords)
{
    open();

    EXPECT_EQ(shown->window().title(), u"glimmet – Software Update"_s);
    EXPECT_FALSE(shown->window().flags().testFlag(Qt::FramelessWindowHint));
    EXPECT_EQ(shown->window().width(), 420);
    EXPECT_EQ(shown->window().height(), view().rootObject()->implicitHeight());
}

TEST_F(UpdateWindowTest, canBeReadByWhoWantsMoreContrast)
{
    UpdateState state = found;
    state.changes = u"one more\n"_s;
    for (const ColorScheme scheme : { ColorScheme::Light, ColorScheme::Dark }) {
        open(state, scheme);

        shown->setLook({ scheme, false, true });

        const QList<ShownText> texts = shownTexts(view());
        ASSERT_GE(texts.size(), 4);
        for (const ShownText &text : texts)
            EXPECT_GE(contrast(text.color, text.ground), textContrast) << text.text.toStdString();
    }
}

TEST_F(UpdateWindowTest, growsWithItsWords)
{
    open();
    const int before = shown->window().height();
    UpdateState state = found;
    state.changes = u"one more\n"_s.repeated(40);

    shown->setState(state);

    EXPECT_TRUE(QTest::qWaitFor([&] { return shown->window().height() > before + 50; }));
    EXPECT_EQ(shown->window().height(), view().rootObject()->implicitHeight());
}

TEST_F(UpdateWindowTest, leadsFromTheCheckToTheNewVersionByReturnAlone)
{
    open();
    shown->setState(found);
    press(Qt::Key_Return);
    EXPECT_EQ(answers, QStringList{ u"install"_s });

    shown->setState({ UpdatePhase::Done, u"1.0"_s, u"1.1"_s });
    press(Qt::Key_Return);
    EXPECT_EQ(answers, (QStringList{ u"install"_s, u"restart"_s }));
}

TEST_F(UpdateWindowTest, escapeGivesTheCheckUp)
{
    open();

    press(Qt::Key_Escape);

    EXPECT_EQ(answers, QStringList{ u"cancel"_s });
}

TEST_F(UpdateWindowTest, escapeClosesWhatIsSaid)
{
    open({ UpdatePhase::UpToDate, u"1.0"_s });

    press(Qt::Key_Escape);

    EXPECT_TRUE(QTest::qWaitFor([this] { return !shown->window().isVisible(); }));
    EXPECT_TRUE(answers.isEmpty());
}

TEST_F(UpdateWindowTest, hasTheLookOfTheDesktop)
{
    open(found, ColorScheme::Dark);
    EXPECT_EQ(view().grabWindow().pixelColor(2, 2).rgba(), panelColors(ColorScheme::Dark).background.rgba());

    shown->setLook({ ColorScheme::Light });

    EXPECT_EQ(view().grabWindow().pixelColor(2, 2).rgba(), panelColors(ColorScheme::Light).background.rgba());
}

TEST_F(UpdateWindowTest, itsEngineGoesWithIt)
{
    open();
    const QPointer<QQmlEngine> engine = view().engine();
    ASSERT_FALSE(engine.isNull());

    shown.reset();

    EXPECT_TRUE(engine.isNull());
}

} // namespace
} // namespace glimmet
