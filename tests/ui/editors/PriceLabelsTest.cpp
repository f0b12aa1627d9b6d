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

TEST(PriceLabels, eachReasonForNoPriceHasItsWords)
{
    EXPECT_EQ(PriceLabels::trouble(std::nullopt), QString());
    EXPECT_EQ(PriceLabels::trouble(PriceFailure::NoNetwork), QStringLiteral("No network"));
    EXPECT_EQ(PriceLabels::trouble(PriceFailure::NoAnswer), QStringLiteral("No answer"));
    EXPECT_EQ(PriceLabels::trouble(PriceFailure::NotFound), QStringLiteral("Not found"));
    EXPECT_EQ(PriceLabels::trouble(PriceFailure::Unreadable), QStringLiteral("Unreadable answer"));
}

TEST(PriceLabels, aPriceSaysWhenItCame)
{
    EXPECT_EQ(PriceLabels::asOf(QStringLiteral("14:32")), QStringLiteral("as of 14:32"));
}

} // namespace glimmet
