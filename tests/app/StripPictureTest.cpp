#include "app/StripPicture.h"

#include <QImage>
#include <QTime>

#include <gtest/gtest.h>

#include <algorithm>

namespace glimmet {
namespace {

const QString text = QStringLiteral("12:34:56");

TEST(StripPicture, isAsWideAsItsTextUpToItsEdge)
{
    const QSize size = StripText(text).size(0, 1280);

    EXPECT_GT(size.width(), 28);
    EXPECT_LT(size.width(), 160);
    EXPECT_EQ(size.height(), 26);
    EXPECT_GT(StripText(text + text).size(0, 1280).width(), size.width());
    EXPECT_EQ(StripText(text.repeated(100)).size(0, 1280).width(), 1280);
}

TEST(StripPicture, standsStillWhileItsTextIsALittleNarrower)
{
    const int width = StripText(text).size(0, 1280).width();

    EXPECT_EQ(StripText(QStringLiteral("11:11:11")).size(width, 1280).width(), width);
    EXPECT_EQ(StripText(text).size(width + 32, 1280).width(), width + 32);
    EXPECT_EQ(StripText(text).size(width + 33, 1280).width(), width);
    EXPECT_EQ(StripText(text).size(width - 1, 1280).width(), width);
    EXPECT_EQ(StripText(text).size(width + 20, width + 10).width(), width);
}

TEST(StripPicture, showsEveryTextWhole)
{
    const auto painted = [](const QString &shown, QSize size) {
        return StripText(shown).picture(size, 1, stripColors(ColorScheme::Light));
    };
    for (int second = 0; second < 24 * 60 * 60; second += 61) {
        const QString shown = QTime(0, 0).addSecs(second).toString(QStringLiteral("HH:mm:ss"));
        const QSize size = StripText(shown).size(0, 1280);
        const QSize wider(size.width() + 40, size.height());

        // With room to spare it is the same picture, only in the middle of a wider one.
        ASSERT_EQ(painted(shown, size), painted(shown, wider).copy(QRect(QPoint(20, 0), size)))
            << shown.toStdString();
    }
}

TEST(StripPicture, endsWhereItIsWantedAsFarAsTheEdgeGoes)
{
    EXPECT_EQ(stripInset(1000, 100, 144), 144);
    EXPECT_EQ(stripInset(1000, 100, -5), 0);
    EXPECT_EQ(stripInset(1000, 100, 950), 900);
    EXPECT_EQ(stripInset(80, 100, 10), 0);
}

TEST(StripPicture, fillsItselfAndWritesInTheDesktopsLightOrDark)
{
    const auto painted = [](ColorScheme scheme) {
        const StripText shown(text);
        return shown.picture(shown.size(0, 1280), 1, stripColors(scheme));
    };
    const QImage light = painted(ColorScheme::Light);
    const QImage dark = painted(ColorScheme::Dark);

    EXPECT_EQ(light.pixelColor(0, 0).alpha(), 255);
    EXPECT_GT(light.pixelColor(0, 0).lightness(), 200);
    EXPECT_LT(dark.pixelColor(0, 0).lightness(), 80);
    int darkest = 255;
    for (int x = 0; x < light.width(); ++x)
        darkest = std::min(darkest, light.pixelColor(x, 13).lightness());
    EXPECT_LT(darkest, 100) << "no ink";
}

TEST(StripPicture, shortensWhatIsLongerThanItsEdge)
{
    const BarColors colors = stripColors(ColorScheme::Light);
    const QImage part = StripText(text.repeated(20)).picture({ 200, 26 }, 1, colors);

    EXPECT_EQ(part.copy(0, 0, 14, 26), part.copy(186, 0, 14, 26)) << "margins";
    EXPECT_NE(part, StripText(text).picture({ 200, 26 }, 1, colors));
    EXPECT_EQ(StripText().picture({ 30, 26 }, 1, colors).pixelColor(15, 13), colors.background);
}

TEST(StripPicture, hasAsManyPixelsAsTheScreen)
{
    const QImage picture = StripText(text).picture({ 100, 26 }, 1.5, stripColors(ColorScheme::Light));

    EXPECT_EQ(picture.size(), QSize(150, 39));
    EXPECT_EQ(picture.devicePixelRatio(), 1.5);
}

TEST(ChangedPart, isTheSmallestRectangleThatHoldsEveryDifference)
{
    QImage before(10, 8, QImage::Format_RGB32);
    before.fill(Qt::white);
    QImage after = before;
    EXPECT_TRUE(changedPart(before, after).isEmpty());
    after.setPixelColor(3, 2, Qt::black);
    EXPECT_EQ(changedPart(before, after), QRect(3, 2, 1, 1));
    after.setPixelColor(9, 2, Qt::black);
    after.setPixelColor(0, 7, Qt::black);
    EXPECT_EQ(changedPart(before, after), QRect(0, 2, 10, 6));
}

TEST(ChangedPart, isAllWhereTheSizeIsAnother)
{
    QImage after(10, 8, QImage::Format_RGB32);
    after.fill(Qt::white);

    EXPECT_EQ(changedPart(QImage(), after), after.rect());
    EXPECT_EQ(changedPart(after.copy(0, 0, 9, 8), after), after.rect());
}

TEST(StripPress, isAClickWhereThePointerHardlyMoves)
{
    StripPress press;
    press.begin(1, 500, 144);
    EXPECT_EQ(press.moveTo(504), std::nullopt);
    EXPECT_EQ(press.moveTo(496), std::nullopt);
    EXPECT_TRUE(press.end(1));
}

TEST(StripPress, dragsTheStripFromTheFirstGreaterMoveOn)
{
    StripPress press;
    press.begin(1, 500, 144);
    EXPECT_EQ(press.moveTo(505), 139);
    EXPECT_EQ(press.moveTo(300), 344);
    EXPECT_EQ(press.moveTo(500), 144) << "back where it began it is a drag still";
    EXPECT_FALSE(press.end(1));
}

TEST(StripPress, isNothingWithoutAPress)
{
    StripPress press;
    EXPECT_EQ(press.moveTo(900), std::nullopt);
    EXPECT_FALSE(press.end(1));
    press.begin(1, 500, 144);
    EXPECT_TRUE(press.end(1));
    EXPECT_FALSE(press.end(1));
    EXPECT_EQ(press.moveTo(900), std::nullopt);
}

TEST(StripPress, belongsToTheButtonThatBeganIt)
{
    StripPress press;
    press.begin(1, 500, 144);
    press.begin(3, 700, 0);
    EXPECT_FALSE(press.end(3));
    EXPECT_TRUE(press.isDown());
    EXPECT_EQ(press.moveTo(510), 134);
    EXPECT_FALSE(press.end(1));
}

TEST(StripPress, isNothingOnceItIsCancelled)
{
    StripPress press;
    press.begin(1, 500, 144);
    press.cancel();
    EXPECT_EQ(press.moveTo(900), std::nullopt);
    EXPECT_FALSE(press.end(1));
}

} // namespace
} // namespace glimmet
