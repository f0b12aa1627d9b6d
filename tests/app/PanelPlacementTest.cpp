#include "app/PanelPlacement.h"
#include "app/ScreenSpace.h"

#include <gtest/gtest.h>

namespace glimmet {
namespace {

constexpr QSize panel(340, 540);

ScreenSpace screen(QRect geometry, double scale = 1, int topBar = 27)
{
    return { geometry, geometry.adjusted(0, topBar, 0, 0), scale };
}

TEST(PanelGeometry, dropsThePanelCentredUnderItsItem)
{
    const QRect panelRect = panelGeometry(panel, { 600, 13 }, screen({ 0, 0, 1280, 800 }));

    EXPECT_EQ(panelRect, QRect(600 - 170, 27 + 4, 340, 540));
}

TEST(PanelGeometry, keepsThePanelWhollyOnTheItemsScreenAtEveryPosition)
{
    for (const QRect &geometry :
        { QRect(0, 0, 1280, 800), QRect(1280, -200, 1024, 768), QRect(-1920, 0, 1920, 1080) }) {
        const ScreenSpace space = screen(geometry);
        for (int x = geometry.left(); x <= geometry.right(); x += 7) {
            for (int y = geometry.top(); y <= geometry.bottom(); y += 13) {
                const QRect rect = panelGeometry(panel, { x, y }, space);
                ASSERT_TRUE(space.available.contains(rect)) << x << ',' << y;
                ASSERT_EQ(rect.size(), panel);
            }
        }
    }
}

TEST(PanelGeometry, lowersThePanelOnALowScreen)
{
    const ScreenSpace low = screen({ 0, 0, 800, 480 });

    const QRect rect = panelGeometry(panel, { 790, 10 }, low);

    EXPECT_TRUE(low.available.contains(rect));
    EXPECT_EQ(rect.width(), 340);
    EXPECT_EQ(rect.height(), 480 - 27 - 8);
}

TEST(PanelGeometry, opensAboveAnItemAtTheLowerEdge)
{
    const ScreenSpace space{ { 0, 0, 1280, 800 }, { 0, 0, 1280, 760 }, 1 };

    const QRect rect = panelGeometry(panel, { 1000, 780 }, space);

    EXPECT_EQ(rect.bottom(), 760 - 4 - 1);
}

TEST(PanelGeometry, leavesTheItemsBarFreeWhereTheScreenDoesNotTellOfIt)
{
    const ScreenSpace untold{ { 0, 400, 1280, 400 }, { 0, 400, 1280, 400 }, 1 };

    const QRect rect = panelGeometry(panel, { 1200, 426 }, untold);

    EXPECT_EQ(rect.top(), 430);
    EXPECT_TRUE(untold.available.contains(rect));
}

} // namespace
} // namespace glimmet
