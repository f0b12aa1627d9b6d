#include "ui/controls/TextExtent.h"
#include "ui/controls/EntryExtent.h"

#include <QVariant>

#include <gtest/gtest.h>

#include <cmath>

namespace glimmet {

QFont inter()
{
    QFont font(QStringLiteral("Inter"));
    font.setPixelSize(11);
    return font;
}

TEST(TextExtent, isAsWideAsTheTextWhereNothingBreaksIt)
{
    const QSizeF one = textExtent(QStringLiteral("word"), inter(), {});
    const QSizeF two = textExtent(QStringLiteral("word word"), inter(), {});

    EXPECT_GT(two.width(), 2 * one.width());
    EXPECT_EQ(two.height(), one.height());
}

TEST(TextExtent, growsByALineWhereTheWidthEnds)
{
    const QSizeF one = textExtent(QStringLiteral("word"), inter(), {});

    const QSizeF two = textExtent(QStringLiteral("word word"), inter(), 1.5 * one.width());

    EXPECT_EQ(two.height(), 2 * one.height());
    EXPECT_LE(two.width(), 1.5 * one.width());
}

TEST(TextExtent, keepsTheTextsOwnLines)
{
    EXPECT_EQ(textExtent(QStringLiteral("a\nb"), inter(), {}).height(),
        2 * textExtent(QStringLiteral("a"), inter(), {}).height());
}

TEST(EntryExtent, isPaddedAndNeverWiderThanTheList)
{
    EntryExtent extent;
    extent.setProperty("font", inter());
    extent.setProperty("horizontalPadding", 20);
    extent.setProperty("verticalPadding", 10);
    const QSizeF word = textExtent(QStringLiteral("word"), inter(), {});

    EXPECT_EQ(
        extent.of(QStringLiteral("word"), 300), QSizeF(std::ceil(word.width()) + 20, word.height() + 10));
    EXPECT_EQ(extent.of(QStringLiteral("word"), 30).width(), 30);
    extent.setProperty("leastHeight", 50);
    EXPECT_EQ(extent.of(QStringLiteral("word"), 300).height(), 60);
}

} // namespace glimmet
