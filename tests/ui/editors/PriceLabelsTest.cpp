#include "ui/editors/PriceLabels.h"
#include "tests/support/Printing.h"

#include <gmock/gmock.h>

namespace glimmet {

TEST(PriceLabels, intervalsAreOfferedInOrder)
{
    EXPECT_THAT(PriceLabels::intervals(), testing::ElementsAre(5, 10, 30, 60));
}

TEST(PriceLabels, anIntervalIsLabelledWithItsSeconds)
{
    EXPECT_EQ(PriceLabels::intervalLabel(5), QStringLiteral("5s"));
    EXPECT_EQ(PriceLabels::intervalLabel(60), QStringLiteral("60s"));
}

} // namespace glimmet
