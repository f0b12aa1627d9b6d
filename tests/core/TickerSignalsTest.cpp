#include "tests/support/TestWorld.h"

#include <QMetaProperty>
#include <QSignalSpy>

#include <memory>

namespace glimmet {
namespace {

using Change = std::function<void(TickerViewModel &)>;

struct Published {
    const char *property;
    Change change;
};

void PrintTo(const Published &published, std::ostream *stream)
{
    *stream << published.property;
}

/// Counts the change signals of every published property.
class ChangeCounter {
public:
    explicit ChangeCounter(TickerViewModel &ticker)
    {
        const QMetaObject &meta = TickerViewModel::staticMetaObject;
        for (int i = meta.propertyOffset(); i < meta.propertyCount(); ++i) {
            const QMetaProperty property = meta.property(i);
            m_spies[property.name()] = std::make_unique<QSignalSpy>(&ticker, property.notifySignal());
        }
    }
    qsizetype count(const char *property) const { return m_spies.at(property)->count(); }
    /// The properties that changed.
    std::vector<std::string> changed() const
    {
        std::vector<std::string> names;
        for (const auto &[name, spy] : m_spies) {
            if (spy->count() > 0
                && name != "activeQuotes") // It is computed and shares the signal of its list.
                names.push_back(name);
        }
        return names;
    }

private:
    std::map<std::string, std::unique_ptr<QSignalSpy>> m_spies;
};

class TickerSignals : public testing::TestWithParam<Published> {
protected:
    TestWorld world;
    TickerViewModel ticker{ world.forTicker() };
    ChangeCounter changes{ ticker };
};

TEST_P(TickerSignals, fireOnceForAChangeAndForNothingElse)
{
    GetParam().change(ticker);

    EXPECT_THAT(changes.changed(), testing::ElementsAre(GetParam().property));
    EXPECT_EQ(changes.count(GetParam().property), 1);
}

TEST_P(TickerSignals, stayQuietOverAnEqualValue)
{
    GetParam().change(ticker);
    GetParam().change(ticker);

    EXPECT_EQ(changes.count(GetParam().property), 1);
}

const Deadline someDeadline{ QUuid::createUuid(), u"launch"_s, { 1 } };

INSTANTIATE_TEST_SUITE_P(Properties, TickerSignals,
    testing::Values(Published{ "mode", [](auto &ticker) { ticker.setMode(TickerMode::Quote); } },
        Published{ "customText", [](auto &ticker) { ticker.setCustomText(u"lunch"_s); } },
        Published{ "showSeconds", [](auto &ticker) { ticker.setShowSeconds(false); } },
        Published{ "use24Hour", [](auto &ticker) { ticker.setUse24Hour(false); } },
        Published{
            "revenueProvider", [](auto &ticker) { ticker.setRevenueProvider(RevenueProvider::Dodo); } },
        Published{ "revenueMetric", [](auto &ticker) { ticker.setRevenueMetric(RevenueMetric::Top); } },
        Published{ "revenueMode", [](auto &ticker) { ticker.setRevenueMode(RevenueMode::Week); } },
        Published{ "polarAPIKey", [](auto &ticker) { ticker.setPolarAPIKey(u"k"_s); } },
        Published{ "revenueCatAPIKey", [](auto &ticker) { ticker.setRevenueCatAPIKey(u"k"_s); } },
        Published{ "revenueCatProjectID", [](auto &ticker) { ticker.setRevenueCatProjectID(u"p"_s); } },
        Published{ "dodoAPIKey", [](auto &ticker) { ticker.setDodoAPIKey(u"k"_s); } },
        Published{ "dodoCurrency", [](auto &ticker) { ticker.setDodoCurrency(u"EUR"_s); } },
        Published{ "stripeAPIKey", [](auto &ticker) { ticker.setStripeAPIKey(u"k"_s); } },
        Published{ "stripeCurrency", [](auto &ticker) { ticker.setStripeCurrency(u"EUR"_s); } },
        Published{ "lemonSqueezyAPIKey", [](auto &ticker) { ticker.setLemonSqueezyAPIKey(u"k"_s); } },
        Published{ "cryptoSymbols", [](auto &ticker) { ticker.setCryptoSymbols({ u"AAPL"_s }); } },
        Published{ "cryptoRotateInterval", [](auto &ticker) { ticker.setCryptoRotateInterval(5); } },
        Published{ "currentCryptoIndex", [](auto &ticker) { ticker.setCurrentCryptoIndex(1); } },
        Published{ "deadlines", [](auto &ticker) { ticker.setDeadlines({ someDeadline }); } },
        Published{ "customQuotes", [](auto &ticker) { ticker.setCustomQuotes({ u"breathe"_s }); } },
        Published{ "quoteRotateInterval", [](auto &ticker) { ticker.setQuoteRotateInterval(5); } }));

class TickerResultSignals : public TickerTest {
protected:
    ChangeCounter changes{ ticker };
};

TEST_F(TickerResultSignals, fireForTheTextOnlyWhenItChanges)
{
    ticker.setShowSeconds(false);
    tick(52);
    EXPECT_EQ(changes.count("currentDisplay"), 1);
    tick();
    EXPECT_EQ(changes.count("currentDisplay"), 2);
}

TEST_F(TickerResultSignals, fireForAPriceOnlyWhenItChanges)
{
    const CryptoPrice price{ u"BTC-USD"_s, 97'012, 1.3, { 1, 2 } };
    world.prices.answer(0, price);
    world.prices.answer(0, price);
    world.prices.answer(1, PriceFailure::Unreadable);

    EXPECT_EQ(changes.count("cryptoPrices"), 1);
    EXPECT_EQ(changes.count("cryptoPriceStatuses"), 2);
}

TEST_F(TickerResultSignals, fireForTheEndOfAFetchAndItsFigure)
{
    world.revenue.answer(0, u"💰 $5.00"_s);
    EXPECT_EQ(changes.count("isFetchingRevenue"), 1);
    EXPECT_EQ(changes.count("revenueLabel"), 1);
    EXPECT_EQ(changes.count("lastFetchError"), 0);

    ticker.fetchRevenue();
    world.revenue.answer(1, u"💰 $5.00"_s);
    EXPECT_EQ(changes.count("isFetchingRevenue"), 3);
    EXPECT_EQ(changes.count("revenueLabel"), 1);
}

TEST_F(TickerResultSignals, fireForAnErrorAndWhenTheNextFetchClearsIt)
{
    world.revenue.answer(0, u"⚠ invalid key"_s);
    EXPECT_EQ(changes.count("lastFetchError"), 1);
    EXPECT_EQ(changes.count("fetchProblems"), 1);
    ticker.fetchRevenue();
    EXPECT_EQ(changes.count("lastFetchError"), 2);
    EXPECT_EQ(changes.count("fetchProblems"), 1);
    world.revenue.answer(1, u"💰 $5.00"_s);
    EXPECT_EQ(changes.count("fetchProblems"), 2);
}

TEST(TickerProperties, haveAChangeSignalEach)
{
    std::map<int, std::vector<std::string>> names;
    const QMetaObject &meta = TickerViewModel::staticMetaObject;
    for (int i = meta.propertyOffset(); i < meta.propertyCount(); ++i) {
        EXPECT_TRUE(meta.property(i).hasNotifySignal()) << meta.property(i).name();
        names[meta.property(i).notifySignalIndex()].emplace_back(meta.property(i).name());
    }

    for (const auto &[signal, properties] : names) {
        // activeQuotes is computed from customQuotes, spokenDisplay from what currentDisplay is.
        const bool isShared = properties.front() == "customQuotes" || properties.front() == "currentDisplay";
        EXPECT_EQ(properties.size(), isShared ? 2U : 1U) << properties.back();
    }
}

TEST(TickerProperties, cannotBeWrittenWhereTheyAreResults)
{
    const QMetaObject &meta = TickerViewModel::staticMetaObject;
    for (const char *name :
        { "revenueLabel", "isFetchingRevenue", "lastFetchError", "fetchProblems", "cryptoPrices",
            "cryptoPriceStatuses", "activeQuotes", "currentDisplay", "isDisplayStale", "spokenDisplay" })
        EXPECT_FALSE(meta.property(meta.indexOfProperty(name)).isWritable()) << name;
}

TEST(TickerSignals, tellEveryDisplayTickAlsoWhereNothingChanged)
{
    TestWorld world;
    TickerViewModel ticker(world.forTicker());
    ticker.setMode(TickerMode::Custom);
    const QSignalSpy ticks(&ticker, &TickerViewModel::ticked);

    world.timers.advance(3s);

    EXPECT_EQ(ticks.count(), 3);
}

} // namespace
} // namespace glimmet
