#include "ui/editors/SymbolTrouble.h"
#include "tests/support/TestWorld.h"

#include <QSignalSpy>

namespace glimmet {
namespace {

class SymbolTroubleTest : public TickerTest {
protected:
    SymbolTroubleTest()
    {
        trouble.setTicker(&ticker);
        trouble.setSymbol(u"ETH-USD"_s);
    }
    void answer(const PriceResult &result)
    {
        ticker.fetchAllCryptoPrices();
        world.prices.answer(static_cast<std::size_t>(world.prices.asked().lastIndexOf(u"ETH-USD"_s)), result);
    }

    SymbolTrouble trouble;
};

TEST_F(SymbolTroubleTest, isToldOnceThereWasNoPriceTwiceAndUntilThereIsOne)
{
    QSignalSpy changes(&trouble, &SymbolTrouble::textChanged);
    answer(PriceFailure::NoNetwork);
    EXPECT_EQ(trouble.text(), QString());

    answer(PriceFailure::NoNetwork);
    EXPECT_EQ(trouble.text(), u"No network"_s);
    answer(PriceFailure::NoNetwork);
    EXPECT_EQ(changes.count(), 1);

    answer(CryptoPrice{ u"ETH-USD"_s, 3200, 0, {} });
    EXPECT_EQ(trouble.text(), QString());
    EXPECT_EQ(changes.count(), 2);
}

TEST_F(SymbolTroubleTest, isThatOfItsSymbolAlone)
{
    answer(PriceFailure::NotFound);
    answer(PriceFailure::NotFound);
    EXPECT_EQ(trouble.text(), u"Not found"_s);

    trouble.setSymbol(u"BTC-USD"_s);
    EXPECT_EQ(trouble.text(), QString());
}

TEST_F(SymbolTroubleTest, isNothingWithoutATicker)
{
    answer(PriceFailure::NotFound);
    answer(PriceFailure::NotFound);

    trouble.setTicker(nullptr);

    EXPECT_EQ(trouble.text(), QString());
}

} // namespace
} // namespace glimmet
