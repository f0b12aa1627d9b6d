// Measures what the open panel costs: the frames of a change of the mode and of scrolling, and the CPU of a
// panel in which nothing moves, only the header's dot, or nothing at all; and what long lists cost. With
// "quotes", "deadlines" or "symbols" as its argument it measures only that list, whose memory no other list
// has used before. Run it on an X screen.

#include "bench/Measure.h"
#include "platform/RepeatingTimer.h"
#include "tests/support/MemoryLoginItem.h"
#include "tests/support/TestWorld.h"
#include "ui/panel/PanelModule.h"

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QPluginLoader>
#include <QQuickItem>
#include <QQuickView>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <vector>

using namespace glimmet;

namespace {

constexpr int settlingTime = 500;
constexpr int switches = 60;
constexpr int scrollSteps = 240;
constexpr double idleSeconds = 10;
constexpr int listSteps = 60;

/// A world whose seconds are real ones.
struct LiveWorld {
    TestWorld world;
    EventLoopTimers timers;
    SystemClock clock;
    TickerViewModel ticker{ { clock, world.region, timers, world.preferences, &world.prices, &world.revenue,
        &world.keys } };
};

void runFor(int milliseconds)
{
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}

/// When the frames of a window were finished, and how long each took to make.
class FrameWatch {
public:
    explicit FrameWatch(QQuickWindow &window)
    {
        m_elapsed.start();
        QObject::connect(&window, &QQuickWindow::beforeSynchronizing, &window, [this] { m_begun = now(); });
        QObject::connect(&window, &QQuickWindow::frameSwapped, &window, [this] {
            m_ends.push_back(now());
            m_costs.push_back(now() - m_begun);
        });
    }

    double now() const { return double(m_elapsed.nsecsElapsed()) / 1e6; }
    void restart()
    {
        m_ends = { now() };
        m_costs.clear();
    }
    /// Milliseconds from each frame to the next, the first from the restart.
    std::vector<double> gaps() const
    {
        std::vector<double> gaps;
        for (std::size_t i = 1; i < m_ends.size(); ++i)
            gaps.push_back(m_ends[i] - m_ends[i - 1]);
        return gaps;
    }
    const std::vector<double> &costs() const { return m_costs; }

private:
    QElapsedTimer m_elapsed;
    double m_begun = 0;
    std::vector<double> m_ends;
    std::vector<double> m_costs;
};

void append(std::vector<double> &all, const std::vector<double> &more)
{
    all.insert(all.end(), more.begin(), more.end());
}

void report(const char *what, std::vector<double> times)
{
    if (times.empty())
        return;
    std::sort(times.begin(), times.end());
    std::printf("%-44s median %.1f ms, 99 of 100 within %.1f ms, longest %.1f ms (%zu)\n", what,
        times[times.size() / 2], times[times.size() * 99 / 100], times.back(), times.size());
}

void measureSwitches(TickerViewModel &ticker, FrameWatch &frames)
{
    std::vector<double> first;
    std::vector<double> later;
    std::vector<double> costs;
    const auto &modes = rawValues<TickerMode>;
    // From the second on: the first is on show already, and what is chosen anew moves nothing.
    for (int i = 1; i <= switches; ++i) {
        const TickerMode mode = modes[static_cast<std::size_t>(i) % modes.size()].first;
        QTimer::singleShot(0, [&] {
            frames.restart();
            ticker.chooseMode(mode);
        });
        runFor(180);
        const std::vector<double> gaps = frames.gaps();
        if (!gaps.empty()) {
            first.push_back(gaps.front());
            later.insert(later.end(), gaps.begin() + 1, gaps.end());
        }
        append(costs, frames.costs());
        runFor(settlingTime);
    }
    report("a mode is chosen: until the first frame", first);
    report("  from frame to frame of its transition", later);
    report("  painting a frame", costs);
}

QQuickItem *scrollArea(const QQuickView &view)
{
    for (QQuickItem *item : view.rootObject()->findChildren<QQuickItem *>()) {
        if (item->inherits("QQuickFlickable"))
            return item;
    }
    return nullptr;
}

void measureScrolling(QQuickView &view, TickerViewModel &ticker, FrameWatch &frames)
{
    ticker.chooseMode(TickerMode::Revenue);
    runFor(settlingTime);
    QQuickItem *area = scrollArea(view);
    if (area == nullptr) {
        std::printf("nothing scrolls\n");
        return;
    }
    const double range = area->property("contentHeight").toDouble() - area->height();
    int step = 0;
    frames.restart();
    QTimer timer;
    timer.setTimerType(Qt::PreciseTimer);
    timer.setInterval(16);
    QObject::connect(&timer, &QTimer::timeout, area, [&] {
        const double phase = double(step++ % 120) / 60;
        area->setProperty("contentY", range * (phase < 1 ? phase : 2 - phase));
    });
    timer.start();
    runFor(16 * scrollSteps);
    timer.stop();
    report("scrolling, a step each 16 ms: frame to frame", frames.gaps());
    report("  painting a frame", frames.costs());
}

void measureIdle(const char *what)
{
    runFor(settlingTime);
    const double before = processCpu();
    runFor(static_cast<int>(idleSeconds * 1000));
    std::printf("%-44s %.1f ms of CPU a second\n", what, (processCpu() - before) / idleSeconds);
}

/// A list of the user's, and how it gets so many entries.
struct LongList {
    const char *entries;
    TickerMode mode;
    int length;
    std::function<void(LiveWorld &live, int length)> fill;
};

/// Of one line, two and three.
QString quote(int number)
{
    const QString words =
        QStringLiteral("number %1 of the quotes that somebody wrote down over the years. ").arg(number);
    return words.repeated(1 + number % 3);
}

void setQuotes(LiveWorld &live, int count)
{
    QStringList quotes;
    for (int i = 0; i < count; ++i)
        quotes.append(quote(i));
    live.ticker.setCustomQuotes(quotes);
}

void setDeadlines(LiveWorld &live, int count)
{
    QList<Deadline> deadlines;
    for (int i = 0; i < count; ++i) {
        deadlines.append({ QUuid::createUuid(), QStringLiteral("deadline %1").arg(i),
            live.clock.now().advanced(7 * i - 60) });
    }
    live.ticker.setDeadlines(deadlines);
}

void setSymbols(LiveWorld &live, int count)
{
    QStringList symbols;
    for (int i = 0; i < count; ++i)
        symbols.append(QStringLiteral("SYM%1").arg(i * i));
    live.ticker.setCryptoSymbols(symbols);
}

/// Milliseconds until the next frame is on the screen.
double timeOfFrame(FrameWatch &frames, const std::function<void()> &act)
{
    frames.restart();
    act();
    waitUntil([&] { return !frames.costs().empty(); });
    return frames.gaps().front();
}

void measureScrollingOf(QQuickView &view, FrameWatch &frames)
{
    QQuickItem *area = scrollArea(view);
    constexpr double step = 60;
    std::vector<double> times;
    for (int i = 1; i <= listSteps; ++i) {
        times.push_back(timeOfFrame(frames, [&] { area->setProperty("contentY", step * i); }));
        runFor(5);
    }
    report("  a step of scrolling: until its frame", times);
    area->setProperty("contentY", 0);
}

/// Beside ten entries of the same kind.
void measureList(const LongList &list, Panel &panel, LiveWorld &live, FrameWatch &frames)
{
    auto &view = static_cast<QQuickView &>(panel.window());
    const auto show = [&](int length) {
        live.ticker.chooseMode(TickerMode::Custom);
        list.fill(live, length);
        runFor(settlingTime);
        const double time = timeOfFrame(frames, [&] { live.ticker.chooseMode(list.mode); });
        runFor(2 * settlingTime);
        return time;
    };
    show(10);
    const double shortTime = show(10);
    const int shortMemory = privateDirty();
    const double longTime = show(list.length);
    std::printf("%d %s: %.1f ms until shown (10: %.1f ms), %.1f MB more\n", list.length, list.entries,
        longTime, shortTime, (privateDirty() - shortMemory) / 1000.0);
    panel.setLook({ ColorScheme::Light, true });
    measureIdle("  shown, nothing else moves");
    panel.setLook({ ColorScheme::Light, false });
    measureScrollingOf(view, frames);
    std::printf("%-44s %.1f MB more\n", "  after scrolling", (privateDirty() - shortMemory) / 1000.0);
    list.fill(live, 10);
    live.ticker.chooseMode(TickerMode::Custom);
    runFor(settlingTime);
}

/// All of them, or the one that is called so.
void measureLists(const QString &entries, Panel &panel, LiveWorld &live, FrameWatch &frames)
{
    panel.setLook({ ColorScheme::Light, false });
    for (const LongList &list : { LongList{ "quotes", TickerMode::Quote, 1000, setQuotes },
             LongList{ "deadlines", TickerMode::Deadline, 1000, setDeadlines },
             LongList{ "symbols", TickerMode::Crypto, 500, setSymbols } }) {
        if (entries.isEmpty() || entries == QLatin1String(list.entries))
            measureList(list, panel, live, frames);
    }
}

} // namespace

int main(int argc, char *argv[])
{
    const QGuiApplication application(argc, argv);
    LiveWorld live;
    QPluginLoader loader(QStringLiteral(GLIMMET_PANEL_FILE));
    auto *module = qobject_cast<PanelModule *>(loader.instance());
    if (module == nullptr) {
        std::fprintf(stderr, "%s\n", qPrintable(loader.errorString()));
        return 1;
    }
    const QString entries = application.arguments().value(1);
    if (entries.isEmpty())
        measureIdle("no panel");
    MemoryLoginItem loginItem;
    auto panel = module->makePanel(live.ticker, { loginItem, [] {}, [](const QString &) {} }, { {}, true });
    auto &view = static_cast<QQuickView &>(panel->window());
    view.show();
    FrameWatch frames(view);
    runFor(settlingTime);
    if (!entries.isEmpty()) {
        measureLists(entries, *panel, live, frames);
        return 0;
    }

    measureSwitches(live.ticker, frames);
    measureScrolling(view, live.ticker, frames);
    live.ticker.chooseMode(TickerMode::Custom);
    measureIdle("open, only the dot moves");
    panel->setLook({ ColorScheme::Light, true });
    measureIdle("open, nothing moves");
    live.ticker.chooseMode(TickerMode::Clock);
    measureIdle("open, only the clock moves");
    measureLists({}, *panel, live, frames);
    panel.reset();
    measureIdle("closed");
    return 0;
}
