#include "revenue/RevenueReport.h"
#include "tests/support/FakeRevenueFetcher.h"
#include "tests/support/ManualTimers.h"
#include "tests/support/MemoryKeyStore.h"
#include "tests/support/Printing.h"

#include <QCoreApplication>
#include <QSignalSpy>

#include <gmock/gmock.h>

#include <memory>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

/// A report by itself; what is on show is the test's to say.
class RevenueReportTest : public testing::Test {
protected:
    RevenueReportWorld world()
    {
        return { clock, timers, &fetcher, &keys, [this] { return isOnShow; } };
    }
    std::size_t fetches() const { return fetcher.count(); }
    /// What the report asks for at this moment.
    RevenueQuery asked()
    {
        report->fetch();
        return fetcher.query(fetcher.count() - 1);
    }

    /// A fetch of that platform that ends with that text.
    void fetch(RevenueProvider provider, const QString &text)
    {
        report->setProvider(provider);
        report->fetch();
        fetcher.answer(fetcher.count() - 1, text);
    }
    /// What is kept of the platform's errors.
    std::optional<FetchProblem> problem(RevenueProvider provider) const
    {
        const FetchProblems problems = report->problems();
        return problems.contains(provider) ? std::optional(problems.value(provider)) : std::nullopt;
    }

    bool isOnShow = false;
    ManualClock clock;
    ManualTimers timers{ clock };
    FakeRevenueFetcher fetcher;
    MemoryKeyStore keys;
    std::unique_ptr<RevenueReport> report = std::make_unique<RevenueReport>(world());
};

TEST_F(RevenueReportTest, hasADashAndNoErrorBeforeItsFirstFetch)
{
    EXPECT_EQ(report->label(), u"–"_s);
    EXPECT_FALSE(report->isFetching());
    EXPECT_EQ(report->lastError(), std::nullopt);
}

TEST_F(RevenueReportTest, asksForWhatIsChosen)
{
    report->setProvider(RevenueProvider::RevenueCat);
    report->setMetric(RevenueMetric::Top);
    report->setPeriod(RevenueMode::Week);
    report->setCredential(KeychainKey::RevenueCatAPIKey, u"sk_1"_s);
    report->setCredential(KeychainKey::RevenueCatProjectID, u"proj1"_s);

    const RevenueQuery query = asked();

    EXPECT_EQ(query.provider, RevenueProvider::RevenueCat);
    EXPECT_EQ(query.metric, RevenueMetric::Top);
    EXPECT_EQ(query.period, RevenueMode::Week);
    EXPECT_EQ(query.apiKey.characters(), u"sk_1"_s);
    EXPECT_EQ(query.projectID, u"proj1"_s);
    EXPECT_EQ(query.currency, QString());
}

TEST_F(RevenueReportTest, asksInTheCurrencyInTheLettersThatThePlatformWants)
{
    report->setCredential(KeychainKey::StripeAPIKey, u"rk_1"_s);
    report->setCredential(KeychainKey::StripeCurrency, u" eUr "_s);
    report->setCredential(KeychainKey::DodoAPIKey, u"dk_1"_s);
    report->setDodoCurrency(u" gbp "_s);

    report->setProvider(RevenueProvider::Stripe);
    EXPECT_EQ(asked().currency, u"eur"_s);

    report->setProvider(RevenueProvider::Dodo);
    EXPECT_EQ(asked().currency, u"GBP"_s);
}

TEST_F(RevenueReportTest, saysWhatIsMissingInsteadOfAskingForIt)
{
    report->setProvider(RevenueProvider::Stripe);

    report->fetch();

    EXPECT_EQ(report->label(), u"add api key"_s);
    EXPECT_FALSE(report->isFetching());
    EXPECT_EQ(report->lastError(), std::nullopt);
    EXPECT_EQ(fetches(), 0U);
}

TEST_F(RevenueReportTest, fetchesANewChoiceAtOnceOnlyWhereItIsOnShow)
{
    report->setMetric(RevenueMetric::Top);
    report->setPeriod(RevenueMode::Week);
    report->setDodoCurrency(u"EUR"_s);
    report->setCredential(KeychainKey::PolarAPIKey, u"pat_1"_s);
    EXPECT_EQ(fetches(), 0U);

    isOnShow = true;
    report->setMetric(RevenueMetric::Top);
    report->setPeriod(RevenueMode::Week);
    report->setDodoCurrency(u"EUR"_s);
    report->setCredential(KeychainKey::PolarAPIKey, u"pat_1"_s);
    EXPECT_EQ(fetches(), 4U);

    report->setProvider(RevenueProvider::RevenueCat);
    EXPECT_EQ(fetches(), 4U);
}

TEST_F(RevenueReportTest, tellsOfChangesAndOfNothingThatIsEqual)
{
    QSignalSpy providers(report.get(), &RevenueReport::providerChanged);
    QSignalSpy currencies(report.get(), &RevenueReport::dodoCurrencyChanged);
    QSignalSpy credentials(report.get(), &RevenueReport::credentialChanged);

    for (int i = 0; i < 2; ++i) {
        report->setProvider(RevenueProvider::Stripe);
        report->setDodoCurrency(u"EUR"_s);
        report->setCredential(KeychainKey::PolarAPIKey, u"pat_1"_s);
    }

    EXPECT_EQ(providers.count(), 1);
    EXPECT_EQ(currencies.count(), 1);
    EXPECT_EQ(credentials.count(), 1);
    EXPECT_THAT(keys.saves(), ElementsAre(u"polar_api_key"_s, u"polar_api_key"_s));
}

TEST_F(RevenueReportTest, isFetchingUntilTheAnswer)
{
    QSignalSpy changes(report.get(), &RevenueReport::isFetchingChanged);

    report->fetch();
    EXPECT_TRUE(report->isFetching());
    EXPECT_EQ(report->label(), u"–"_s);

    fetcher.answer(0, u"$ 12"_s);
    EXPECT_FALSE(report->isFetching());
    EXPECT_EQ(report->label(), u"$ 12"_s);
    EXPECT_EQ(changes.count(), 2);
}

TEST_F(RevenueReportTest, remembersAnErrorUntilTheNextFetch)
{
    report->fetch();
    fetcher.answer(0, u"⚠ HTTP 500"_s);
    EXPECT_EQ(report->label(), u"⚠ HTTP 500"_s);
    EXPECT_EQ(report->lastError(), u"⚠ HTTP 500"_s);

    report->fetch();
    EXPECT_EQ(report->label(), u"⚠ HTTP 500"_s);
    EXPECT_EQ(report->lastError(), std::nullopt);
}

TEST_F(RevenueReportTest, keepsThePlatformsLastErrorWithItsTimeUntilItsNextSuccess)
{
    QSignalSpy changes(report.get(), &RevenueReport::problemsChanged);
    fetch(RevenueProvider::Polar, u"⚠ http 500"_s);
    clock.pass(60s);
    fetch(RevenueProvider::Polar, u"⚠ invalid key"_s);
    const FetchProblem latest{ u"⚠ invalid key"_s, clock.now() };
    EXPECT_EQ(problem(RevenueProvider::Polar), latest);

    clock.pass(60s);
    report->fetch();
    EXPECT_EQ(report->lastError(), std::nullopt);
    EXPECT_EQ(problem(RevenueProvider::Polar), latest);

    fetcher.answer(fetches() - 1, u"💰 $5.00"_s);
    EXPECT_EQ(problem(RevenueProvider::Polar), std::nullopt);
    EXPECT_EQ(changes.count(), 3);
}

TEST_F(RevenueReportTest, keepsAnErrorThatComesAgainWithItsNewTime)
{
    fetch(RevenueProvider::Polar, u"⚠ http 500"_s);
    clock.pass(300s);

    fetch(RevenueProvider::Polar, u"⚠ http 500"_s);

    EXPECT_EQ(problem(RevenueProvider::Polar), (FetchProblem{ u"⚠ http 500"_s, clock.now() }));
}

TEST_F(RevenueReportTest, keepsTheErrorsOfThePlatformsApart)
{
    report->setCredential(KeychainKey::LemonSqueezyAPIKey, u"key"_s);
    fetch(RevenueProvider::Polar, u"⚠ invalid key"_s);
    fetch(RevenueProvider::LemonSqueezy, u"⚠ http 500"_s);
    EXPECT_EQ(problem(RevenueProvider::Polar)->text, u"⚠ invalid key"_s);
    EXPECT_EQ(problem(RevenueProvider::LemonSqueezy)->text, u"⚠ http 500"_s);

    fetch(RevenueProvider::LemonSqueezy, u"💰 $5.00"_s);

    EXPECT_EQ(problem(RevenueProvider::LemonSqueezy), std::nullopt);
    EXPECT_EQ(problem(RevenueProvider::Polar)->text, u"⚠ invalid key"_s);
}

TEST_F(RevenueReportTest, keepsAnErrorUnderThePlatformThatWasAsked)
{
    report->fetch();
    report->setProvider(RevenueProvider::RevenueCat);

    fetcher.answer(0, u"⚠ http 500"_s);

    EXPECT_EQ(problem(RevenueProvider::Polar)->text, u"⚠ http 500"_s);
    EXPECT_EQ(problem(RevenueProvider::RevenueCat), std::nullopt);
}

TEST_F(RevenueReportTest, doesNotTakeTheQuestionForAKeyForASuccess)
{
    fetch(RevenueProvider::Polar, u"⚠ invalid key"_s);

    for (const QString &text : { u"add api key"_s, u"add project id"_s, u"set currency"_s }) {
        fetch(RevenueProvider::Polar, text);
        EXPECT_EQ(problem(RevenueProvider::Polar)->text, u"⚠ invalid key"_s) << text.toStdString();
    }
}

TEST_F(RevenueReportTest, isStaleWhileItsTextIsAnError)
{
    fetch(RevenueProvider::Polar, u"⚠ http 500"_s);
    EXPECT_TRUE(report->isStale());
    report->fetch();
    EXPECT_TRUE(report->isStale());

    fetcher.answer(1, u"💰 $5.00"_s);
    EXPECT_FALSE(report->isStale());
}

TEST_F(RevenueReportTest, isStaleOnceItsTextIsOlderThanTwoRefreshes)
{
    EXPECT_FALSE(report->isStale());
    clock.pass(601s);
    EXPECT_TRUE(report->isStale());

    fetch(RevenueProvider::Polar, u"💰 $5.00"_s);
    clock.pass(600s);
    EXPECT_FALSE(report->isStale());
    clock.pass(1s);
    EXPECT_TRUE(report->isStale());

    fetch(RevenueProvider::Polar, u"💰 $5.00"_s);
    EXPECT_FALSE(report->isStale());
}

TEST_F(RevenueReportTest, fetchesNowAndEveryFiveMinutesWhileItsTimerRuns)
{
    report->startTimer();
    EXPECT_EQ(fetches(), 1U);

    timers.advance(299s);
    EXPECT_EQ(fetches(), 1U);
    timers.advance(1s);
    EXPECT_EQ(fetches(), 2U);

    report->stopTimer();
    timers.advance(1h);
    EXPECT_EQ(fetches(), 2U);
}

TEST_F(RevenueReportTest, takesOverTheCredentialsAndWhatStandsInForThem)
{
    keys.items() = { { u"polar_api_key"_s, "pat_1" } };

    report->loadCredentials();

    EXPECT_EQ(report->credential(KeychainKey::PolarAPIKey), u"pat_1"_s);
    EXPECT_EQ(report->credential(KeychainKey::StripeCurrency), u"USD"_s);
    EXPECT_EQ(report->credential(KeychainKey::DodoAPIKey), QString());
}

TEST_F(RevenueReportTest, asksALockedStoreAgainBeforeItFetches)
{
    keys.items() = { { u"polar_api_key"_s, "pat_1" } };
    keys.lock();
    report->loadCredentials();
    report->startTimer();
    EXPECT_TRUE(fetcher.query(0).apiKey.isBlank());
    keys.unlock(); // It tells of that from the event loop, which does not run here.

    timers.advance(5min);

    EXPECT_EQ(fetcher.query(1).apiKey.characters(), u"pat_1"_s);
}

TEST_F(RevenueReportTest, fetchesOnceWithAllThatALockedStoreTellsLater)
{
    keys.items() = { { u"stripe_api_key"_s, "rk_1" }, { u"stripe_currency"_s, "EUR" } };
    keys.lock();
    report->loadCredentials();
    report->setProvider(RevenueProvider::Stripe);
    isOnShow = true;

    keys.unlock();
    QCoreApplication::processEvents();

    ASSERT_EQ(fetches(), 1U);
    EXPECT_EQ(fetcher.query(0).apiKey.characters(), u"rk_1"_s);
    EXPECT_EQ(fetcher.query(0).currency, u"eur"_s);
}

TEST_F(RevenueReportTest, takesNoAnswerAfterItsEnd)
{
    report->startTimer();

    report.reset();

    fetcher.answer(0, u"$ 12"_s);
    EXPECT_THAT(timers.running(), IsEmpty());
}

TEST_F(RevenueReportTest, keepsItsTextWithoutAFetcherAndItsCredentialsWithoutAStore)
{
    RevenueReportWorld without = world();
    without.fetcher = nullptr;
    without.keys = nullptr;
    RevenueReport alone(without);

    alone.loadCredentials();
    alone.setCredential(KeychainKey::PolarAPIKey, u"pat_1"_s);
    alone.fetch();

    EXPECT_EQ(alone.credential(KeychainKey::PolarAPIKey), u"pat_1"_s);
    EXPECT_EQ(alone.label(), u"–"_s);
    EXPECT_FALSE(alone.isFetching());
}

} // namespace
} // namespace glimmet
