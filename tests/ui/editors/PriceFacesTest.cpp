#include "ui/editors/PriceFaces.h"
#include "tests/support/Printing.h"

#include <gmock/gmock.h>

namespace glimmet {

TEST(PriceFaces, intervalsAreOfferedInOrder)
{
    EXPECT_THAT(PriceFaces::intervals(), testing::ElementsAre(5, 10, 30, 60));
}

TEST(PriceFaces, anIntervalIsLabelledWithItsSeconds)
{
    EXPECT_EQ(PriceFaces::intervalLabel(5), QStringLiteral("5s"));
    EXPECT_EQ(PriceFaces::intervalLabel(60), QStringLiteral("60s"));
}

} // namespace glimmet
