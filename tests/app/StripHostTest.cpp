#include "app/StripHost.h"
#include "app/StripPicture.h"
#include "platform/desktop/BarColorsWatch.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace glimmet {
namespace {

struct Shown {
    int count = 0;
    int inset = 0;
    QString text;
    BarColors colors;
    StripFace *face = nullptr;
};

class FakeFace final : public StripFace {
public:
    FakeFace(Shown &shown, int inset)
        : m_shown(shown)
    {
        ++m_shown.count;
        m_shown.inset = inset;
        m_shown.face = this;
    }
    ~FakeFace() override
    {
        --m_shown.count;
        m_shown.face = nullptr;
    }
    Q_DISABLE_COPY_MOVE(FakeFace)

    void setText(const QString &text) override { m_shown.text = text; }
    void setColors(const BarColors &colors) override { m_shown.colors = colors; }
    std::optional<QPoint> anchor() const override { return QPoint(100, 26); }

private:
    Shown &m_shown;
};

class StripHostTest : public testing::Test {
protected:
    Shown shown;
    BarColorsWatch *watch = nullptr;
    StripHost host{ [this](int inset) { return std::make_unique<FakeFace>(shown, inset); },
        [this] {
            auto made = std::make_unique<BarColorsWatch>(QByteArray());
            watch = made.get();
            return made;
        } };
};

TEST_F(StripHostTest, isAlwaysAvailableAndThereOnlyWhileItIsShown)
{
    EXPECT_TRUE(host.isAvailable());
    EXPECT_EQ(host.anchor(), std::nullopt);

    host.setShown(true);
    EXPECT_EQ(shown.count, 1);
    EXPECT_EQ(host.anchor(), QPoint(100, 26));
    EXPECT_TRUE(host.knowsEdge());

    host.setShown(false);
    EXPECT_EQ(shown.count, 0);
}

TEST(StripHostWithoutAFace, showsNothingAndSaysSo)
{
    StripHost host([](int) { return nullptr; }, [] { return nullptr; });
    host.setShown(true);
    host.setText(QStringLiteral("12:34"));
    host.setColorScheme(ColorScheme::Dark);

    EXPECT_EQ(host.place(), QStringLiteral("nothing"));
    EXPECT_EQ(host.anchor(), std::nullopt);
}

TEST_F(StripHostTest, comesUpWithWhatItWasToldBefore)
{
    host.setText(QStringLiteral("12:34"));
    host.setColorScheme(ColorScheme::Dark);
    host.setShown(true);

    EXPECT_EQ(shown.text, QStringLiteral("12:34"));
    EXPECT_EQ(shown.colors, stripColors(ColorScheme::Dark));

    host.setText(QStringLiteral("12:35"));
    host.setColorScheme(ColorScheme::Light);
    EXPECT_EQ(shown.text, QStringLiteral("12:35"));
    EXPECT_EQ(shown.colors, stripColors(ColorScheme::Light));
}

TEST_F(StripHostTest, isDrawnInTheColoursOfABarThatTellsThem)
{
    const BarColors bar{ QColor(0x10, 0x20, 0x30), Qt::white };
    host.setShown(true);

    emit watch->found(bar);
    EXPECT_EQ(shown.colors, bar);

    host.setColorScheme(ColorScheme::Dark);
    EXPECT_EQ(shown.colors, bar);
}

TEST_F(StripHostTest, comesBackWhereItWasDraggedTo)
{
    host.setShown(true);
    EXPECT_EQ(shown.inset, 144);
    emit shown.face->dragged(700);
    host.setShown(false);

    host.setShown(true);

    EXPECT_EQ(shown.inset, 700);
}

TEST_F(StripHostTest, tellsOfAClick)
{
    int clicks = 0;
    QObject::connect(&host, &MenuBarHost::clicked, &host, [&clicks] { ++clicks; });
    host.setShown(true);

    emit shown.face->clicked();

    EXPECT_EQ(clicks, 1);
}

} // namespace
} // namespace glimmet
