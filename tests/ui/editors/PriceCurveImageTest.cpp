#include "ui/editors/PriceCurveImage.h"

#include <QQuickWindow>
#include <QTest>

#include <gtest/gtest.h>

#include <limits>

namespace glimmet {

namespace {

class CountedCurve : public PriceCurveImage {
public:
    using PriceCurveImage::PriceCurveImage;

    void paint(QPainter *painter) override
    {
        ++paintings;
        PriceCurveImage::paint(painter);
    }

    int paintings = 0;
};

/// A chart of 100 by 72 on white in a window of its own.
class PriceCurveImageTest : public testing::Test {
protected:
    PriceCurveImageTest()
    {
        curve.setParentItem(window.contentItem());
        curve.setSize({ 100, 72 });
        curve.setLineColor(Qt::red);
        curve.setAreaColor(QColor(0, 0, 255, 64));
        curve.setLineWidth(1.5);
        window.resize(100, 72);
        window.show();
    }
    /// Paints whatever has changed.
    QImage picture() { return window.grabWindow(); }
    static bool isPaper(const QImage &picture)
    {
        QImage paper(picture.size(), picture.format());
        paper.fill(Qt::white);
        return picture == paper;
    }

    const bool m_isSoftware = [] {
        QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
        return true;
    }();
    QQuickWindow window;
    CountedCurve curve;
};

} // namespace

TEST_F(PriceCurveImageTest, drawsALineOverAnAreaThatFadesOut)
{
    curve.setHistory({ 1, 1 });

    const QImage drawn = picture();

    EXPECT_EQ(drawn.pixelColor(50, 20), QColor(Qt::white));
    EXPECT_GT(drawn.pixelColor(50, 36).red(), 240);
    EXPECT_LT(drawn.pixelColor(50, 36).green(), 80);
    EXPECT_NEAR(drawn.pixelColor(50, 45).red(), 255 - 64 * (72 - 45.5) / 72, 2);
    EXPECT_EQ(drawn.pixelColor(50, 45).blue(), 255);
    EXPECT_NEAR(drawn.pixelColor(50, 71).red(), 255, 1);
}

TEST_F(PriceCurveImageTest, onePriceIsADot)
{
    curve.setHistory({ 97012 });

    const QImage drawn = picture();

    EXPECT_EQ(drawn.pixelColor(50, 36), QColor(Qt::red));
    EXPECT_EQ(drawn.pixelColor(50, 31), QColor(Qt::white));
    EXPECT_EQ(drawn.pixelColor(45, 36), QColor(Qt::white));
    EXPECT_EQ(drawn.pixelColor(50, 50), QColor(Qt::white));
}

TEST_F(PriceCurveImageTest, withoutPricesThereIsNothing)
{
    EXPECT_TRUE(isPaper(picture()));
    curve.setHistory({ std::numeric_limits<double>::quiet_NaN() });
    EXPECT_TRUE(isPaper(picture()));
}

TEST_F(PriceCurveImageTest, anyPricesAreDrawn)
{
    QList<double> many;
    for (int i = 0; i < 10000; ++i)
        many.append(i * 7919 % 1000);
    const double endless = std::numeric_limits<double>::infinity();
    const QList<QList<double>> series{ { 1, 2 }, { -1e308, 1e308, 5 }, { 1e308, 1e308 }, { 5e-324, 0 },
        { endless, 1, -endless, 2 }, many };
    for (const QList<double> &prices : series) {
        curve.setHistory(prices);
        EXPECT_FALSE(isPaper(picture()));
    }
}

TEST_F(PriceCurveImageTest, isPaintedAnewOnlyWhenSomethingChanges)
{
    curve.setHistory({ 1, 2, 3 });
    picture();
    const int before = curve.paintings;

    curve.setHistory({ 1, 2, 3 });
    curve.setLineColor(Qt::red);
    curve.setLineWidth(1.5);
    curve.setAreaColor(QColor(0, 0, 255, 64));
    picture();
    EXPECT_EQ(curve.paintings, before);

    curve.setHistory({ 1, 2, 4 });
    picture();
    EXPECT_EQ(curve.paintings, before + 1);
    curve.setLineColor(Qt::green);
    picture();
    EXPECT_EQ(curve.paintings, before + 2);
    curve.setSize({ 90, 72 });
    picture();
    EXPECT_EQ(curve.paintings, before + 3);
}

} // namespace glimmet
