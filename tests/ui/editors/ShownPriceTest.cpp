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
