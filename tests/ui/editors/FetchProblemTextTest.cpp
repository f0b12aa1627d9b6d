#include "ui/editors/FetchProblemText.h"
#include "tests/support/TestWorld.h"

#include <QSignalSpy>

namespace glimmet {
namespace {

class FetchProblemTextTest : public TickerTest {
protected:
    FetchProblemTextTest()
    {
        ticker.setPolarAPIKey(u"polar_pat_1234"_s);
        text.setTicker(&ticker);
    }
    void fetch(const QString &answer)
    {
        ticker.fetchRevenue();
        world.revenue.answer(world.revenue.count() - 1, answer);
    }

    FetchProblemText text;
};

TEST_F(FetchProblemTextTest, isThePlatformsLastErrorAndWhenItCame)
{
    EXPECT_EQ(text.text(), QString());
    QSignalSpy changes(&text, &FetchProblemText::textChanged);

    fetch(u"⚠ the request timed out"_s);
    EXPECT_EQ(text.text(), u"⚠ the request timed out · 09:05"_s);
    ticker.fetchRevenue();
    EXPECT_EQ(text.text(), u"⚠ the request timed out · 09:05"_s);
    EXPECT_EQ(changes.count(), 1);

    fetch(u"💰 $5.00"_s);
    EXPECT_EQ(text.text(), QString());
    EXPECT_EQ(changes.count(), 2);
}

TEST_F(FetchProblemTextTest, isNothingOfAnotherPlatforms)
{
    fetch(u"⚠ invalid key"_s);

    text.setProvider(static_cast<int>(RevenueProvider::RevenueCat));
    EXPECT_EQ(text.text(), QString());

    text.setProvider(static_cast<int>(RevenueProvider::Polar));
    EXPECT_EQ(text.text(), u"⚠ invalid key · 09:05"_s);
}

TEST_F(FetchProblemTextTest, tellsTheDayOnceTheErrorIsNotOfToday)
{
    fetch(u"⚠ invalid key"_s);

    world.clock.advance(86400);
    tick();

    EXPECT_EQ(text.text(), u"⚠ invalid key · 4 May 2026, 09:05"_s);
}

TEST_F(FetchProblemTextTest, isByTheClockOfTheUsersRegion)
{
    fetch(u"⚠ invalid key"_s);

    world.region.setZone("Europe/Berlin");
    tick();
    EXPECT_EQ(text.text(), u"⚠ invalid key · 10:05"_s);

    world.region.setLocale("en_US");
    tick();
    EXPECT_EQ(text.text(), u"⚠ invalid key · 10:05\u202FAM"_s);
}

TEST_F(FetchProblemTextTest, isNothingWithoutATicker)
{
    fetch(u"⚠ invalid key"_s);

    text.setTicker(nullptr);
    tick();

    EXPECT_EQ(text.text(), QString());
}

} // namespace
} // namespace glimmet
