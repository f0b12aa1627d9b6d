#include "core/Deadlines.h"
#include "core/TickerViewModel.h"
#include "platform/Clock.h"
#include "platform/CurrencyText.h"
#include "platform/DateTimeText.h"
#include "tests/support/MemoryPreferences.h"
#include "tests/support/TestWorld.h"

#include <QDateTime>
#include <QLocale>

#include <benchmark/benchmark.h>
#include <unicode/numfmt.h>
#include <unicode/smpdtfmt.h>

/// What a tick costs, beside the other ways to make the same text.
namespace glimmet {
namespace {

void clockTextByThePrograms(benchmark::State &state)
{
    const SystemClock clock;
    const SystemRegion region;
    const ClockText text(region);
    for (auto _ : state)
        benchmark::DoNotOptimize(text.at(clock.now(), u"HH:mm:ss"));
}
BENCHMARK(clockTextByThePrograms);

void clockTextByANewFormatter(benchmark::State &state)
{
    const SystemClock clock;
    const SystemRegion region;
    for (auto _ : state)
        benchmark::DoNotOptimize(ClockText(region).at(clock.now(), u"HH:mm:ss"));
}
BENCHMARK(clockTextByANewFormatter);

void clockTextByAKeptFormatter(benchmark::State &state)
{
    UErrorCode status = U_ZERO_ERROR;
    const icu::SimpleDateFormat format(icu::UnicodeString(u"HH:mm:ss"), icu::Locale("en_US"), status);
    const SystemClock clock;
    for (auto _ : state) {
        icu::UnicodeString text;
        format.format(clock.now().unixMilliseconds(), text);
        benchmark::DoNotOptimize(text);
    }
}
BENCHMARK(clockTextByAKeptFormatter);

void clockTextByQLocale(benchmark::State &state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(QLocale().toString(QDateTime::currentDateTime(), u"HH:mm:ss"));
}
BENCHMARK(clockTextByQLocale);

void currencyTextByNumberFormatter(benchmark::State &state)
{
    const QString currency = QStringLiteral("USD");
    for (auto _ : state)
        benchmark::DoNotOptimize(currencyText(12345678.9, currency, 2));
}
BENCHMARK(currencyTextByNumberFormatter);

void currencyTextByNumberFormat(benchmark::State &state)
{
    for (auto _ : state) {
        UErrorCode status = U_ZERO_ERROR;
        const std::unique_ptr<icu::NumberFormat> format(
            icu::NumberFormat::createCurrencyInstance(icu::Locale("en_US"), status));
        icu::UnicodeString text;
        format->format(12345678.9, text);
        benchmark::DoNotOptimize(text);
    }
}
BENCHMARK(currencyTextByNumberFormat);

void currencyTextByQLocale(benchmark::State &state)
{
    const QLocale locale(QLocale::English, QLocale::UnitedStates);
    for (auto _ : state)
        benchmark::DoNotOptimize(locale.toCurrencyString(12345678.9, QStringLiteral("$"), 2));
}
BENCHMARK(currencyTextByQLocale);

void deadlinesRead(benchmark::State &state)
{
    QList<Deadline> deadlines;
    for (int i = 0; i < state.range(0); ++i)
        deadlines.append({ QUuid::createUuid(), QStringLiteral("Math Exam"), Instant{ 7.8e8 + i * 0.1 } });
    const QByteArray json = *deadlinesToJson(deadlines);
    for (auto _ : state)
        benchmark::DoNotOptimize(deadlinesFromJson(json));
}
BENCHMARK(deadlinesRead)->Arg(10)->Arg(1000);

/// A second in which deadlines are counted down, half of them to come.
void deadlinesTick(benchmark::State &state)
{
    const SystemClock clock;
    const Instant now = clock.now();
    QList<Deadline> all;
    for (int i = 0; i < state.range(0); ++i)
        all.append({ QUuid::createUuid(), QStringLiteral("Math Exam"),
            now.advanced(3600.0 * (i % 2 == 0 ? i + 1 : -i)) });
    MemoryPreferences preferences;
    Deadlines deadlines(preferences, clock);
    deadlines.setAll(all);
    for (auto _ : state) {
        deadlines.tick();
        benchmark::DoNotOptimize(deadlines.display());
    }
}
BENCHMARK(deadlinesTick)->Arg(10)->Arg(1000)->Arg(100'000);

/// A second in which prices are shown in turn.
void pricesTick(benchmark::State &state)
{
    TestWorld world;
    TickerViewModel ticker({ world.clock, world.region, world.timers, world.preferences, &world.prices });
    QStringList symbols;
    for (int i = 0; i < state.range(0); ++i)
        symbols.append(QStringLiteral("S%1").arg(i));
    ticker.setCryptoSymbols(symbols);
    ticker.setMode(TickerMode::Crypto);
    for (auto _ : state)
        world.timers.advance(std::chrono::seconds(1));
}
BENCHMARK(pricesTick)->Arg(10)->Arg(1000)->Arg(10'000);

} // namespace
} // namespace glimmet
