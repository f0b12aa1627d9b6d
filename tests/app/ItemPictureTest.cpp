#include "app/ItemPicture.h"

#include <QPainter>

#include <gtest/gtest.h>

#include <cmath>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;

constexpr std::array modes{ TickerMode::Clock, TickerMode::Quote, TickerMode::Custom, TickerMode::Revenue,
    TickerMode::Crypto, TickerMode::Deadline };

/// As the Web Content Accessibility Guidelines 2.1 define it.
double luminance(QRgb color)
{
    const auto linear = [](int channel) {
        const double part = channel / 255.0;
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(qRed(color)) + 0.7152 * linear(qGreen(color)) + 0.0722 * linear(qBlue(color));
}

/// The highest contrast that any pixel of the picture has to the bar.
double contrastOn(const QColor &bar, const QImage &picture)
{
    QImage shown(picture.size(), QImage::Format_RGB32);
    shown.fill(bar);
    QPainter(&shown).drawImage(0, 0, picture);
    double highest = 1;
    for (int y = 0; y < shown.height(); ++y) {
        for (int x = 0; x < shown.width(); ++x) {
            const double one = luminance(shown.pixel(x, y)) + 0.05;
            const double other = luminance(bar.rgb()) + 0.05;
            highest = std::max(highest, std::max(one, other) / std::min(one, other));
        }
    }
    return highest;
}

TEST(ModePicture, isItsOwnForEachMode)
{
    QList<QImage> pictures;
    for (const TickerMode mode : modes) {
        const QImage picture = modePicture(mode, 22, ColorScheme::Light);
        EXPECT_EQ(picture.size(), QSize(22, 22));
        EXPECT_FALSE(pictures.contains(picture)) << static_cast<int>(mode);
        pictures.append(picture);
    }
}

TEST(ModePicture, standsOutOnABarOfTheSchemeAndOnTheOtherOne)
{
    for (const TickerMode mode : modes) {
        for (const int size : { 22, 44, 64 }) {
            const QImage onLight = modePicture(mode, size, ColorScheme::Light);
            const QImage onDark = modePicture(mode, size, ColorScheme::Dark);
            EXPECT_GE(contrastOn(QColor(0xf0, 0xf0, 0xf0), onLight), 7);
            EXPECT_GE(contrastOn(QColor(0x20, 0x20, 0x20), onDark), 7);
            EXPECT_GE(contrastOn(QColor(0x20, 0x20, 0x20), onLight), 3);
            EXPECT_GE(contrastOn(QColor(0xf0, 0xf0, 0xf0), onDark), 3);
        }
    }
}

TEST(ModePicture, leavesNothingOutsideAndItsEdgeWhole)
{
    for (const TickerMode mode : modes) {
        const QImage picture = modePicture(mode, 64, ColorScheme::Dark);
        for (int i = 0; i < 64; ++i)
            for (const QPoint &border : { QPoint(i, 0), QPoint(i, 63), QPoint(0, i), QPoint(63, i) })
                EXPECT_EQ(picture.pixelColor(border).alpha(), 0) << static_cast<int>(mode) << ' ' << i;
    }
}

TEST(TextPicture, isAsWideAsItsText)
{
    const QImage little = textPicture(u"12:00"_s, 22, ColorScheme::Dark);
    const QImage more = textPicture(u"12:00:00"_s, 22, ColorScheme::Dark);

    EXPECT_EQ(little.height(), 22);
    EXPECT_GT(more.width(), little.width());
    EXPECT_GE(contrastOn(QColor(0x20, 0x20, 0x20), more), 7);
}

TEST(TextPicture, isAsWideForEachSecondOfAClock)
{
    for (const int height : { 22, 44 }) {
        const int width = textPicture(u"00:00:00"_s, height, ColorScheme::Dark).width();
        for (const QString &text : { u"11:11:11"_s, u"14:17:41"_s, u"08:46:59"_s })
            EXPECT_EQ(textPicture(text, height, ColorScheme::Dark).width(), width) << text.toStdString();
    }
}

TEST(TextPicture, isNeverTakenForASquareOne)
{
    EXPECT_GT(textPicture(u"1"_s, 44, ColorScheme::Dark).width(), 44);
    EXPECT_GT(textPicture(u""_s, 44, ColorScheme::Dark).width(), 44);
}

TEST(TextPicture, endsALongTextInAnEllipsis)
{
    const QImage picture = textPicture(QString(5000, u'w'), 22, ColorScheme::Dark);

    EXPECT_LE(picture.width(), 23 * 22);
}

} // namespace
} // namespace glimmet
