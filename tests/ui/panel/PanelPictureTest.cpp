#include "tests/support/MemoryLoginItem.h"
#include "tests/support/TestWorld.h"
#include "tests/ui/panel/PanelDescription.h"
#include "ui/panel/Contrast.h"
#include "ui/panel/GlimmetPanelModule.h"

#include <QDir>
#include <QFile>
#include <QQuickItem>
#include <QQuickView>
#include <QTest>

#include <functional>

namespace glimmet {
namespace {

/// What the panel is shown doing.
struct Scene {
    QString name;
    std::function<void(TestWorld &, TickerViewModel &)> prepare;
    std::function<void(const QQuickView &)> act = [](const QQuickView &) {};
};

// Higher than any editor, so that nothing is scrolled away.
constexpr QSize tallPanel(340, 1400);

QQuickItem *findButton(QQuickItem &root, const char *property, const QString &value)
{
    if (root.inherits("QQuickAbstractButton") && root.property(property) == QVariant(value))
        return &root;
    for (QQuickItem *child : root.childItems()) {
        if (QQuickItem *found = findButton(*child, property, value))
            return found;
    }
    return nullptr;
}

/// Presses the first button whose property has this value.
void press(const QQuickView &view, const char *property, const QString &value)
{
    QQuickItem *button = findButton(*view.rootObject(), property, value);
    ASSERT_NE(button, nullptr) << "no button whose " << property << " is " << value.toStdString();
    QMetaObject::invokeMethod(button, "clicked");
}

void pressKeys(const QQuickView &view)
{
    press(view, "text", u"API Keys"_s);
}

void showPrices(TestWorld &world, TickerViewModel &ticker, const QStringList &symbols)
{
    ticker.setCryptoSymbols(symbols);
    ticker.setMode(TickerMode::Crypto);
    ticker.fetchAllCryptoPrices();
    for (std::size_t i = 0; i < static_cast<std::size_t>(world.prices.asked().size()); ++i) {
        const QString symbol = world.prices.asked().at(static_cast<qsizetype>(i));
        world.prices.answer(i, CryptoPrice{ symbol, 97'012, 1.3, { 95'000, 96'100, 95'500, 97'012 } });
    }
}

/// The service knows the second symbol only, and was asked twice.
void showAnUnknownSymbol(TestWorld &world, TickerViewModel &ticker)
{
    ticker.setCryptoSymbols({ u"NOPE"_s, u"AAPL"_s });
    ticker.setMode(TickerMode::Crypto);
    for (int i = 0; i < 2; ++i) {
        const auto first = static_cast<std::size_t>(world.prices.asked().size());
        ticker.fetchAllCryptoPrices();
        world.prices.answer(first, PriceFailure::NotFound);
        world.prices.answer(first + 1, CryptoPrice{ u"AAPL"_s, 212.3, -0.4, { 213, 212.5, 212.3 } });
    }
}

void addDeadlines(TestWorld &world, TickerViewModel &ticker)
{
    ticker.setMode(TickerMode::Deadline);
    ticker.addDeadline(world.deadline(u"Rent"_s, -60));
    ticker.addDeadline(world.deadline(u"Math Exam"_s, 90'061));
    ticker.addDeadline(world.deadline(u"A release with a name that is far too long for its row"_s, 2'700));
}

QList<Scene> scenes()
{
    const auto mode = [](TickerMode chosen) {
        return [chosen](TestWorld &, TickerViewModel &ticker) { ticker.setMode(chosen); };
    };
    const auto provider = [](RevenueProvider chosen) {
        return [chosen](TestWorld &, TickerViewModel &ticker) {
            ticker.setMode(TickerMode::Revenue);
            ticker.setRevenueProvider(chosen);
            ticker.handleRevenueResult(u"💰 $1,234.50"_s);
        };
    };
    return {
        { u"clock"_s, mode(TickerMode::Clock) },
        { u"quote"_s, mode(TickerMode::Quote) },
        { u"quotes-of-the-users"_s,
            [](TestWorld &, TickerViewModel &ticker) {
                ticker.setMode(TickerMode::Quote);
                ticker.addQuote(u"measure twice"_s);
                ticker.addQuote(u"a quote that is long enough to need a second line of the row "
                                u"that it stands in"_s);
            } },
        { u"custom"_s, mode(TickerMode::Custom) },
        { u"revenue"_s, provider(RevenueProvider::Polar) },
        { u"revenue-fetching"_s,
            [](TestWorld &, TickerViewModel &ticker) {
                ticker.setMode(TickerMode::Revenue);
                ticker.fetchRevenue();
            } },
        { u"revenue-failed"_s,
            [](TestWorld &, TickerViewModel &ticker) {
                ticker.setMode(TickerMode::Revenue);
                ticker.handleRevenueResult(u"⚠ the request timed out"_s);
            } },
        { u"revenue-of-revenuecat"_s, provider(RevenueProvider::RevenueCat) },
        { u"revenue-of-stripe"_s, provider(RevenueProvider::Stripe) },
        { u"revenue-of-dodo"_s, provider(RevenueProvider::Dodo) },
        { u"prices"_s,
            [](TestWorld &world, TickerViewModel &ticker) {
                showPrices(
                    world, ticker, { u"BTC-USD"_s, u"ETH-USD"_s, u"AAPL"_s, u"DOGE-USD"_s, u"TSLA"_s });
            } },
        { u"prices-fetching"_s, mode(TickerMode::Crypto) },
        { u"prices-not-found"_s, showAnUnknownSymbol },
        { u"prices-of-nothing"_s,
            [](TestWorld &world, TickerViewModel &ticker) { showPrices(world, ticker, {}); } },
        { u"deadlines"_s, addDeadlines },
        { u"deadlines-of-none"_s, mode(TickerMode::Deadline) },
        { u"deadlines-calendar"_s, addDeadlines,
            [](const QQuickView &view) { press(view, "symbol", u"calendar"_s); } },
        { u"keys"_s, provider(RevenueProvider::Stripe), pressKeys },
        { u"keys-refused"_s,
            [](TestWorld &, TickerViewModel &ticker) {
                ticker.setMode(TickerMode::Revenue);
                ticker.setPolarAPIKey(u"polar_pat_1234"_s);
                ticker.handleRevenueResult(u"⚠ invalid key"_s);
            },
            pressKeys },
        { u"settings"_s, mode(TickerMode::Clock),
            [](const QQuickView &view) { press(view, "symbol", u"gearshape.fill"_s); } },
        { u"keys-revealed"_s,
            [provider](TestWorld &world, TickerViewModel &ticker) {
                provider(RevenueProvider::Polar)(world, ticker);
                ticker.setPolarAPIKey(u"polar_pat_1234"_s);
                ticker.setStripeAPIKey(u"rk_live_1234"_s);
            },
            [](const QQuickView &view) {
                pressKeys(view);
                press(view, "symbol", u"eye.slash"_s);
            } },
    };
}

QString referenceFile(const QString &scene, ColorScheme scheme)
{
    const QString suffix = scheme == ColorScheme::Dark ? u"dark"_s : u"light"_s;
    return QStringLiteral(GLIMMET_REFERENCES "/%1-%2.txt").arg(scene, suffix);
}

QList<DrawnItem> readReference(const QString &path)
{
    QFile file(path);
    QList<DrawnItem> items;
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return items;
    for (const QString &line : QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts))
        items.append(DrawnItem::fromLine(line));
    return items;
}

void writeReference(const QString &path, const QList<DrawnItem> &items)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Text));
    for (const DrawnItem &item : items)
        file.write(item.toLine().toUtf8() + '\n');
}

struct Picture {
    Scene scene;
    ColorScheme scheme = ColorScheme::Light;
};

void PrintTo(const Picture &picture, std::ostream *stream)
{
    *stream << picture.scene.name.toStdString();
}

QList<Picture> pictures()
{
    QList<Picture> all;
    for (const Scene &scene : scenes()) {
        for (const ColorScheme scheme : { ColorScheme::Light, ColorScheme::Dark })
            all.append({ scene, scheme });
    }
    return all;
}

/// Every editor and sheet against what it looked like when a person looked at it. After a wanted change:
/// `GLIMMET_WRITE_REFERENCES=1 glimmet_ui_tests --gtest_filter='*PanelPicture*'`, and a look at the
/// difference.
class PanelPicture : public TickerTest, public testing::WithParamInterface<Picture> {
protected:
    std::unique_ptr<Panel> makePanel(bool wantsContrast = false)
    {
        // Nothing moves, so that whatever is drawn is drawn where it belongs.
        return GlimmetPanelModule().makePanel(ticker, { loginItem, [] {}, [](const QString &) {} },
            { { GetParam().scheme, true, wantsContrast }, true });
    }

    MemoryLoginItem loginItem;
};

TEST_P(PanelPicture, isAsItWas)
{
    const Scene &scene = GetParam().scene;
    scene.prepare(world, ticker);
    tick();
    const auto panel = makePanel();
    auto &view = static_cast<QQuickView &>(panel->window());
    view.resize(tallPanel);
    view.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&view));
    scene.act(view);

    const QString path = referenceFile(scene.name, GetParam().scheme);
    if (qEnvironmentVariableIsSet("GLIMMET_WRITE_REFERENCES"))
        writeReference(path, drawnItems(view));
    const QList<DrawnItem> expected = readReference(path);

    ASSERT_FALSE(expected.isEmpty()) << path.toStdString();
    EXPECT_EQ(differences(expected, drawnItems(view)).join(u'\n').toStdString(), "");
}

TEST_P(PanelPicture, canBeReadByWhoWantsMoreContrast)
{
    const Scene &scene = GetParam().scene;
    scene.prepare(world, ticker);
    tick();
    const auto panel = makePanel(true);
    auto &view = static_cast<QQuickView &>(panel->window());
    view.resize(tallPanel);
    view.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&view));
    scene.act(view);

    const QList<ShownText> texts = shownTexts(view);

    ASSERT_FALSE(texts.isEmpty());
    for (const ShownText &shown : texts)
        EXPECT_GE(contrast(shown.color, shown.ground), textContrast) << shown.text.toStdString();
}

INSTANTIATE_TEST_SUITE_P(all, PanelPicture, testing::ValuesIn(pictures()), [](const auto &tested) {
    QString name =
        tested.param.scene.name + (tested.param.scheme == ColorScheme::Dark ? u"-dark"_s : u"-light"_s);
    return name.replace(u'-', u'_').toStdString();
});

TEST(PanelDescription, findsAnItemThatMovedByMoreThanAPixel)
{
    const DrawnItem item{ u"Card.Text"_s, { 10, 20, 30, 40 }, u"words"_s, u"#ff000000"_s, {} };
    DrawnItem moved = item;
    moved.area.translate(0, 1.1);

    EXPECT_EQ(differences({ item }, { moved }).size(), 1);
    moved.area = item.area.translated(0.9, -0.9);
    EXPECT_TRUE(differences({ item }, { moved }).isEmpty());
}

TEST(PanelDescription, letsAnItemMakeRoomForTheTextsBesideIt)
{
    const QString style = u"#ff000000 10px 400"_s;
    const DrawnItem words{ u"Card.Text"_s, { 10, 20, 30, 10 }, u"words"_s, style, {}, 30 };
    const DrawnItem beside{ u"Card.RoundedBox"_s, { 50, 15, 10, 20 }, {}, u"#ff000000"_s, {} };
    const DrawnItem below{ u"Card.RoundedBox"_s, { 50, 40, 10, 20 }, {}, u"#ff000000"_s, {} };
    DrawnItem wider = words;
    wider.area.setWidth(33);
    wider.measure = 33;
    const auto found = [&](double besideBy, double belowBy) {
        DrawnItem movedBeside = beside;
        DrawnItem movedBelow = below;
        movedBeside.area.translate(besideBy, 0);
        movedBelow.area.translate(belowBy, 0);
        return differences({ words, beside, below }, { wider, movedBeside, movedBelow }).size();
    };

    EXPECT_EQ(found(3.9, 0.9), 0);
    EXPECT_EQ(found(4.1, 0), 1);
    EXPECT_EQ(found(0, 1.1), 1);
}

TEST(PanelDescription, lendsNoRoomToATextThatIsWiderThanItsFontMakesIt)
{
    const DrawnItem words{ u"Card.Text"_s, { 10, 20, 30, 10 }, u"words"_s, u"#ff000000 10px 400"_s, {}, 30 };
    DrawnItem wider = words;
    wider.area.setWidth(33);

    EXPECT_EQ(differences({ words }, { wider }).size(), 1);
}

TEST(PanelDescription, findsAnotherColorAnotherTextAndWhatIsMissing)
{
    const DrawnItem item{ u"Card.RoundedBox"_s, { 10, 20, 30, 40 }, {}, u"#ff000000"_s, QColor(1, 2, 3) };
    DrawnItem other = item;

    other.pixel = QColor(1, 2, 9);
    EXPECT_EQ(differences({ item }, { other }).size(), 1);
    other = item;
    other.style = u"#ff000001"_s;
    EXPECT_EQ(differences({ item }, { other }).size(), 1);
    EXPECT_EQ(differences({ item, item }, { item }).size(), 1);
    EXPECT_EQ(differences({ item }, { item, item }).size(), 1);
    EXPECT_TRUE(differences({ item }, { item }).isEmpty());
}

TEST(PanelDescription, readsBackWhatItWrites)
{
    const DrawnItem item{ u"Card.Text"_s, { 10.5, 20, 30, 40.5 }, u"a, b"_s, u"#ff000000 10px"_s,
        QColor(9, 8, 7), 12.25 };

    const DrawnItem read = DrawnItem::fromLine(item.toLine());

    EXPECT_TRUE(differences({ item }, { read }).isEmpty());
    EXPECT_EQ(read.measure, 12.25);
}

} // namespace
} // namespace glimmet
