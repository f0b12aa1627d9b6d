#include "ui/editors/ShownPrice.h"
#include "tests/support/TestWorld.h"

namespace glimmet {

class ShownPriceTest : public TickerTest {
protected:
    ShownPriceTest()
    {
        ticker.setMode(TickerMode::Crypto);
        price.setTicker(&ticker);
        QObject::connect(&price, &ShownPrice::changed, [this] { ++changes; });
    }
    void store(const CryptoPrice &answer)
    {
        world.prices.answerAtOnce(answer);
        ticker.fetchAllCryptoPrices();
    }

    void fail(const QString &symbol, PriceFailure reason)
    {
        ticker.fetchAllCryptoPrices();
        world.prices.answer(static_cast<std::size_t>(world.prices.asked().lastIndexOf(symbol)), reason);
    }

    ShownPrice price;
    int changes = 0;
};

TEST_F(ShownPriceTest, standsAtTheIndexOfTheRotation)
{
    EXPECT_EQ(price.index(), 0);
    tick(10);
    EXPECT_EQ(price.index(), 1);
    EXPECT_TRUE(price.hasSymbol());
}

TEST_F(ShownPriceTest, isNothingWhereTheIndexIsOutOfRange)
{
    const QStringList symbols{ u"BTC-USD"_s, u"ETH-USD"_s };

    EXPECT_EQ(ShownPrice::indexOnShow(symbols, 0), 0);
    EXPECT_EQ(ShownPrice::indexOnShow(symbols, 1), 1);
    EXPECT_EQ(ShownPrice::indexOnShow(symbols, 2), -1);
    EXPECT_EQ(ShownPrice::indexOnShow(symbols, -1), -1);
    EXPECT_EQ(ShownPrice::indexOnShow({}, 0), -1);
}

TEST_F(ShownPriceTest, isNothingWhereTheListIsEmpty)
{
    store({ u"BTC-USD"_s, 97012, 1.3, { 1, 2 } });

    ticker.setCryptoSymbols({});

    EXPECT_FALSE(price.hasSymbol());
    EXPECT_FALSE(price.hasChart());
    EXPECT_EQ(price.shortName(), QString());
}

TEST_F(ShownPriceTest, anUnknownPriceHasNoChart)
{
    EXPECT_TRUE(price.hasSymbol());
    EXPECT_FALSE(price.hasChart());
    EXPECT_TRUE(price.history().isEmpty());
}

TEST_F(ShownPriceTest, aPriceWithoutHistoryHasNoChart)
{
    store({ u"BTC-USD"_s, 97012, 1.3, {} });

    EXPECT_FALSE(price.hasChart());
    EXPECT_EQ(price.shortName(), u"BTC"_s);
}

TEST_F(ShownPriceTest, followsTheStoredPrice)
{
    store({ u"BTC-USD"_s, 97012, 1.3, { 1, 2 } });
    EXPECT_TRUE(price.hasChart());
    EXPECT_EQ(price.shortName(), u"BTC"_s);
    EXPECT_EQ(price.menuBarString(), u"BTC $97,012 (↑1.3%)"_s);
    EXPECT_EQ(price.history(), QList<double>({ 1, 2 }));

    store({ u"BTC-USD"_s, 97013, -1.3, { 1, 2, 3 } });
    EXPECT_EQ(price.menuBarString(), u"BTC $97,013 (↓1.3%)"_s);
    EXPECT_EQ(price.history(), QList<double>({ 1, 2, 3 }));
}

TEST_F(ShownPriceTest, tellsWhenThePriceCame)
{
    EXPECT_EQ(price.arrival(), QString());

    store({ u"BTC-USD"_s, 97012, 1.3, { 1, 2 } });
    EXPECT_EQ(price.arrival(), u"as of 09:05"_s);
    world.clock.advance(60);
    store({ u"BTC-USD"_s, 97012, 1.3, { 1, 2 } });
    EXPECT_EQ(price.arrival(), u"as of 09:06"_s);
    EXPECT_EQ(changes, 3); // the price, its time, its next time

    world.region.setLocale("en_US");
    tick();
    EXPECT_EQ(price.arrival(), u"as of 9:06\u202FAM"_s);
}

TEST_F(ShownPriceTest, tellsTheDayOnceThePriceIsNotOfToday)
{
    world.prices.answer(0, CryptoPrice{ u"BTC-USD"_s, 97012, 1.3, { 1, 2 } });

    world.clock.advance(86400);
    EXPECT_EQ(price.arrival(), u"as of 09:05"_s);
    tick();

    EXPECT_EQ(price.arrival(), u"as of 4 May 2026, 09:05"_s);
}

TEST_F(ShownPriceTest, tellsWhyThereIsNoPriceOnceThereWasNoneTwice)
{
    fail(u"BTC-USD"_s, PriceFailure::NotFound);
    EXPECT_EQ(price.trouble(), QString());
    fail(u"BTC-USD"_s, PriceFailure::NotFound);
    EXPECT_EQ(price.trouble(), u"Not found"_s);

    ticker.setCurrentCryptoIndex(1);
    EXPECT_EQ(price.trouble(), QString());
    ticker.setCurrentCryptoIndex(0);
    EXPECT_EQ(price.trouble(), u"Not found"_s);
    store({ u"BTC-USD"_s, 97012, 1.3, { 1, 2 } });
    EXPECT_EQ(price.trouble(), QString());
}

TEST_F(ShownPriceTest, followsTheRotation)
{
    store({ u"BTC-USD"_s, 97012, 1.3, { 1, 2 } });
    store({ u"ETH-USD"_s, 3200, 0, { 4, 5 } });

    ticker.setCurrentCryptoIndex(1);

    EXPECT_EQ(price.shortName(), u"ETH"_s);
    EXPECT_EQ(price.history(), QList<double>({ 4, 5 }));
}

TEST_F(ShownPriceTest, followsTheList)
{
    store({ u"BTC-USD"_s, 97012, 1.3, { 1, 2 } });

    ticker.removeCryptoSymbol(u"BTC-USD"_s);
    EXPECT_FALSE(price.hasChart());
    ticker.setCryptoSymbols({ u"BTC-USD"_s, u"ETH-USD"_s });
    EXPECT_TRUE(price.hasChart());
}

TEST_F(ShownPriceTest, othersPricesChangeNothing)
{
    store({ u"ETH-USD"_s, 3200, 0, { 4, 5 } });

    EXPECT_EQ(changes, 0);
}

TEST_F(ShownPriceTest, tellsTheInterval)
{
    int intervalChanges = 0;
    QObject::connect(&price, &ShownPrice::intervalChanged, [&intervalChanges] { ++intervalChanges; });
    EXPECT_EQ(price.interval(), 10);

    ticker.setCryptoRotateInterval(30);

    EXPECT_EQ(price.interval(), 30);
    EXPECT_EQ(intervalChanges, 1);
}

TEST_F(ShownPriceTest, withoutATickerThereIsNothing)
{
    price.setTicker(nullptr);
    ticker.setCurrentCryptoIndex(1);

    EXPECT_FALSE(price.hasSymbol());
    EXPECT_EQ(price.interval(), 0);
    EXPECT_EQ(changes, 1);
}

} // namespace glimmet
