#include "core/PreferencesKeys.h"
#include "platform/DiagnosticLog.h"
#include "platform/JsonPreferencesStore.h"
#include "platform/RepeatingTimer.h"

#include <QSettings>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

/// What an assignment costs, beside the platform's own settings class. Only the first of them survives a full
/// disk.
namespace glimmet {
namespace {

QStringList quotes(qint64 count)
{
    QStringList list;
    for (qint64 i = 0; i < count; ++i)
        list.append(QStringLiteral("one step at a time 🌱 %1").arg(i));
    return list;
}

void changedListIntoTheStore(benchmark::State &state)
{
    const QTemporaryDir folder;
    EventLoopTimers timers;
    DiagnosticLog log;
    JsonPreferencesStore store(folder.filePath(QStringLiteral("preferences.json")), timers, log);
    const QStringList even = quotes(state.range(0));
    const QStringList odd = quotes(state.range(0) + 1);
    bool isOdd = false;
    for (auto _ : state) {
        isOdd = !isOdd;
        benchmark::DoNotOptimize(store.setStringList(PreferencesKeys::quotes, isOdd ? odd : even));
    }
}
BENCHMARK(changedListIntoTheStore)->Arg(10)->Arg(1000);

void equalListIntoTheStore(benchmark::State &state)
{
    const QTemporaryDir folder;
    EventLoopTimers timers;
    DiagnosticLog log;
    JsonPreferencesStore store(folder.filePath(QStringLiteral("preferences.json")), timers, log);
    const QStringList list = quotes(state.range(0));
    for (auto _ : state)
        benchmark::DoNotOptimize(store.setStringList(PreferencesKeys::quotes, list));
}
BENCHMARK(equalListIntoTheStore)->Arg(10)->Arg(1000);

void changedListIntoQSettings(benchmark::State &state)
{
    const QTemporaryDir folder;
    QSettings settings(folder.filePath(QStringLiteral("settings.ini")), QSettings::IniFormat);
    const QStringList even = quotes(state.range(0));
    const QStringList odd = quotes(state.range(0) + 1);
    bool isOdd = false;
    for (auto _ : state) {
        isOdd = !isOdd;
        settings.setValue(PreferencesKeys::quotes, isOdd ? odd : even);
        settings.sync();
    }
}
BENCHMARK(changedListIntoQSettings)->Arg(10)->Arg(1000);

void listOutOfTheStore(benchmark::State &state)
{
    const QTemporaryDir folder;
    EventLoopTimers timers;
    DiagnosticLog log;
    JsonPreferencesStore store(folder.filePath(QStringLiteral("preferences.json")), timers, log);
    store.setStringList(PreferencesKeys::quotes, quotes(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(store.stringList(PreferencesKeys::quotes));
}
BENCHMARK(listOutOfTheStore)->Arg(10)->Arg(1000);

} // namespace
} // namespace glimmet
