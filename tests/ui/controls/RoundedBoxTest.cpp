#include "ui/controls/RoundedBox.h"

#include <gtest/gtest.h>

namespace glimmet {

bool holdsPicture(const RoundedBox &box)
{
    return box.flags().testFlag(QQuickItem::ItemHasContents);
}

TEST(RoundedBox, holdsNoPictureWhileThereIsNothingToSee)
{
    RoundedBox box;
    EXPECT_FALSE(holdsPicture(box));
    box.setBorderColor(Qt::black);
    EXPECT_FALSE(holdsPicture(box));

    box.setBorderWidth(1);
    EXPECT_TRUE(holdsPicture(box));
    box.setBorderWidth(0);
    EXPECT_FALSE(holdsPicture(box));
    box.setColor(Qt::red);
    EXPECT_TRUE(holdsPicture(box));
    box.setColor(Qt::transparent);
    EXPECT_FALSE(holdsPicture(box));
}

} // namespace glimmet
