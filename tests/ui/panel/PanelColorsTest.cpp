#include "ui/panel/PanelColors.h"

#include "ui/panel/Contrast.h"

#include <gtest/gtest.h>

namespace glimmet {

class PanelColorsTest : public testing::TestWithParam<ColorScheme> {};

TEST_P(PanelColorsTest, inkIsReadableOnTheGround)
{
    const PanelColors colors = panelColors(GetParam());

    EXPECT_GE(contrast(colors.ink, colors.background), textContrast);
}

TEST_P(PanelColorsTest, theHighlightIsReadableOnTheGround)
{
    const PanelColors colors = panelColors(GetParam());

    EXPECT_GE(contrast(colors.accent, colors.background), textContrast);
}

INSTANTIATE_TEST_SUITE_P(schemes, PanelColorsTest, testing::Values(ColorScheme::Light, ColorScheme::Dark),
    [](const auto &tested) { return tested.param == ColorScheme::Dark ? "dark" : "light"; });

} // namespace glimmet
