#include "ui/panel/Appearance.h"
#include "ui/panel/Contrast.h"

#include <QQmlComponent>
#include <QQmlEngine>

#include <memory>
#include <vector>

#include <gtest/gtest.h>

namespace glimmet {
namespace {

/// A colour of the theme, and the fills that lie between it and the background, the lowest first.
struct Placed {
    const char *color;
    std::vector<const char *> fills;
};

void PrintTo(const Placed &placed, std::ostream *stream)
{
    *stream << placed.color;
    for (const char *fill : placed.fills)
        *stream << " on " << fill;
}

const std::vector<Placed> accentTexts{
    { "accent", {} },
    { "accent", { "fieldFill" } },
    { "accent", { "fieldFill", "buttonFill" } },
    { "accent", { "fieldFill", "badgeFill" } },
    { "accent", { "rowFill", "countdownFill" } },
    { "accent", { "chipFill" } },
    { "savedText", {} },
    { "background", { "accent" } },
};

const std::vector<Placed> texts{
    { "softText", {} },
    { "softText", { "buttonFill" } },
    { "softText", { "rowFill" } },
    { "softText", { "fieldFill" } },
    { "softText", { "fieldFill", "buttonFill" } },
    { "labelText", {} },
    { "helpText", {} },
    { "helpText", { "fieldFill" } },
    { "faintText", {} },
    { "faintText", { "circleFill" } },
    { "faintestText", {} },
    { "busyText", {} },
    { "quietSymbol", { "rowFill" } },
    { "cardSymbol", { "buttonFill" } },
    { "cardSymbol", { "fieldFill" } },
    { "choiceInk", {} },
    { "choiceInk", { "buttonFill" } },
    { "choiceInk", { "chartGround" } },
    { "background", { "strongFill" } },
};

const std::vector<Placed> edges{
    { "fieldBorder", {} },
    { "fieldBorder", { "fieldFill" } },
    { "cardBorder", {} },
    { "cardBorder", { "buttonFill" } },
    { "chipBorder", {} },
    { "chipBorder", { "buttonFill" } },
    { "separator", {} },
    { "divider", {} },
    { "switchedOff", { "rowFill" } },
    { "knob", { "rowFill", "switchedOff" } },
    { "accent", { "progressTrack" } },
};

/// The theme as each component reads it.
class ThemeTest : public testing::TestWithParam<ColorScheme> {
protected:
    ThemeTest()
    {
        appearance.setLook({ GetParam() });
        QQmlComponent reader(&engine);
        reader.setData("import QtQml\nimport Glimmet\nQtObject { property QtObject theme: Theme }", {});
        component.reset(reader.create());
    }

    void SetUp() override { ASSERT_NE(component, nullptr); }
    void wantContrast() { appearance.setLook({ GetParam(), false, true }); }
    QColor color(const char *name) const
    {
        return component->property("theme").value<QObject *>()->property(name).value<QColor>();
    }
    /// Of a colour to what it lies on.
    double reached(const Placed &placed) const
    {
        QColor ground = color("background");
        for (const char *fill : placed.fills)
            ground = laidOver(color(fill), ground);
        return contrast(laidOver(color(placed.color), ground), ground);
    }
    void expectAtLeast(double ratio, const std::vector<Placed> &all) const
    {
        for (const Placed &placed : all)
            EXPECT_GE(reached(placed), ratio) << testing::PrintToString(placed);
    }

    QQmlEngine engine;
    Appearance &appearance = *new Appearance(&engine);
    std::unique_ptr<QObject> component;
};

TEST_P(ThemeTest, theHighlightIsReadableOnItsOwnTints)
{
    expectAtLeast(textContrast, accentTexts);
}

TEST_P(ThemeTest, theHighlightMarksAChipThatIsFilledWithInk)
{
    EXPECT_GE(reached({ "accentOnInk", { "strongFill" } }), edgeContrast);
}

TEST_P(ThemeTest, everyTextIsReadableWhereMoreContrastIsWanted)
{
    wantContrast();

    expectAtLeast(textContrast, texts);
    expectAtLeast(textContrast, accentTexts);
}

TEST_P(ThemeTest, everyEdgeStandsOutWhereMoreContrastIsWanted)
{
    wantContrast();

    expectAtLeast(edgeContrast, edges);
}

TEST_P(ThemeTest, keepsItsQuietTonesWhereItIsNot)
{
    wantContrast();
    appearance.setLook({ GetParam() });

    EXPECT_NEAR(color("softText").alphaF(), 0.4, 0.001);
    EXPECT_NEAR(color("faintestText").alphaF(), 0.25, 0.001);
    EXPECT_NEAR(color("savedText").alphaF(), 0.8, 0.001);
    EXPECT_NEAR(color("separator").alphaF(), 0.08, 0.001);
}

TEST_P(ThemeTest, whatIsStrongEnoughStaysAsItIs)
{
    wantContrast();

    EXPECT_NEAR(color("strongFill").alphaF(), 0.8, 0.001);
    EXPECT_EQ(appearance.shades().text(0.9).alphaF(), atOpacity(color("ink"), 0.9).alphaF());
}

TEST_P(ThemeTest, whatCannotBeUsedIsLegibleWhereMoreContrastIsWanted)
{
    wantContrast();
    const QColor ink = color("ink");
    const QColor ground = color("background");

    for (const double opacity : { 0.5, 0.25 })
        EXPECT_GE(contrast(laidOver(atOpacity(ink, appearance.shades().control(opacity)), ground), ground),
            textContrast);
}

INSTANTIATE_TEST_SUITE_P(schemes, ThemeTest, testing::Values(ColorScheme::Light, ColorScheme::Dark),
    [](const auto &tested) { return tested.param == ColorScheme::Dark ? "dark" : "light"; });

} // namespace
} // namespace glimmet
