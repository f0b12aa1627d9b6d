#include "ui/panel/PanelColors.h"

#include <cmath>

#include <gtest/gtest.h>

namespace glimmet {

namespace {

/// As the Web Content Accessibility Guidelines define it:
/// https://www.w3.org/TR/WCAG21/#dfn-relative-luminance
double linear(double channel)
{
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double luminance(const QColor &color)
{
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

double contrast(const QColor &one, const QColor &other)
{
    const double a = luminance(one) + 0.05;
    const double b = luminance(other) + 0.05;
    return a > b ? a / b : b / a;
}

} // namespace

class PanelColorsTest : public testing::TestWithParam<ColorScheme> {};

TEST(PanelContrast, reachesFromOneToTwentyOne)
{
    EXPECT_NEAR(contrast(Qt::white, Qt::white), 1, 0.01);
    EXPECT_NEAR(contrast(Qt::black, Qt::white), 21, 0.01);
}

TEST_P(PanelColorsTest, inkIsReadableOnTheGround)
{
    const PanelColors colors = panelColors(GetParam());

    EXPECT_GE(contrast(colors.ink, colors.background), 4.5);
}

TEST_P(PanelColorsTest, theHighlightIsReadableOnTheGround)
{
    const PanelColors colors = panelColors(GetParam());

    EXPECT_GE(contrast(colors.accent, colors.background), 4.5);
}

INSTANTIATE_TEST_SUITE_P(schemes, PanelColorsTest, testing::Values(ColorScheme::Light, ColorScheme::Dark),
    [](const auto &tested) { return tested.param == ColorScheme::Dark ? "dark" : "light"; });

} // namespace glimmet
