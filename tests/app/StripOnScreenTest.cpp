#include "app/StripWindow.h"

#include "tests/support/ManualTimers.h"
#include "tests/support/PrivateBus.h"

#include <QGuiApplication>
#include <QRasterWindow>
#include <QScreen>

#include <gtest/gtest.h>

#include <optional>

namespace glimmet {
namespace {

const BarColors colors{ QColor(0x10, 0x40, 0xd0), QColor(0xff, 0xd0, 0x20) };
const QString early = QStringLiteral("10:08:27");
const QString late = QStringLiteral("10:08:28");

/// A strip on an X server's screen with nothing else on it.
class StripOnScreenTest : public testing::Test {
protected:
    void SetUp() override
    {
        if (QGuiApplication::platformName() != u"xcb")
            GTEST_SKIP() << "not on an X server";
        strip.emplace(timers, 0);
        strip->setColors(colors);
        strip->setText(early);
    }

    static QImage seen(const QRect &area)
    {
        return QGuiApplication::primaryScreen()
            ->grabWindow(0, area.x(), area.y(), area.width(), area.height())
            .toImage()
            .convertToFormat(QImage::Format_RGB32);
    }
    QWindow &window() const { return *QGuiApplication::topLevelWindows().constFirst(); }
    /// Whether it looks as one that is painted anew with that text.
    bool shows(const QString &text, const BarColors &in = colors) const
    {
        const QRect area = window().geometry();
        return waitFor([&] {
            QGuiApplication::processEvents();
            return seen(area) == StripText(text).picture(area.size(), window().devicePixelRatio(), in);
        });
    }

    ManualTimers timers;
    std::optional<StripWindow> strip;
};

TEST_F(StripOnScreenTest, isTheSameToThePixelWhetherAllOfItOrAPartIsPainted)
{
    EXPECT_TRUE(shows(early));
    for (const QString &text : { late, early, QStringLiteral("10:08"), early + early, late }) {
        strip->setText(text);
        EXPECT_TRUE(shows(text)) << text.toStdString();
    }
}

TEST_F(StripOnScreenTest, takesOtherColoursAtOnce)
{
    ASSERT_TRUE(shows(early));
    const BarColors others{ Qt::black, QColor(0x30, 0xff, 0x30) };

    strip->setColors(others);

    EXPECT_TRUE(shows(early, others));
}

TEST_F(StripOnScreenTest, hasItsPresentTextWhereItWasCoveredMeanwhile)
{
    ASSERT_TRUE(shows(early));
    QRasterWindow cover;
    cover.setFlags(Qt::BypassWindowManagerHint);
    cover.setGeometry(window().geometry());
    cover.show();
    ASSERT_TRUE(waitFor([&] { return cover.isExposed(); }));

    strip->setText(late);
    cover.hide();

    EXPECT_TRUE(shows(late));
}

TEST_F(StripOnScreenTest, isDrawnAnewInAWindowThatIsMadeAnew)
{
    ASSERT_TRUE(shows(early));

    window().destroy();
    strip->setText(late);

    EXPECT_TRUE(shows(late));
    strip->setText(early);
    EXPECT_TRUE(shows(early));
}

} // namespace
} // namespace glimmet
