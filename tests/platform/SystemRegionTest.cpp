#include "platform/UserRegion.h"

#include "platform/DateTimeText.h"
#include "tests/support/FixedRegion.h"
#include "tests/support/Printing.h"

#include <gtest/gtest.h>

#include <map>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;

/// Starts without any of the variables and puts all back as they were.
class SystemRegionTest : public testing::Test {
protected:
    SystemRegionTest()
    {
        for (const char *name : { "LC_ALL", "LC_TIME", "LANG", "TZ" }) {
            if (qEnvironmentVariableIsSet(name))
                m_saved[name] = qgetenv(name);
            qunsetenv(name);
        }
    }
    ~SystemRegionTest() override
    {
        for (const char *name : { "LC_ALL", "LC_TIME", "LANG", "TZ" }) {
            qunsetenv(name);
            if (m_saved.contains(name))
                qputenv(name, m_saved[name]);
        }
    }
    Q_DISABLE_COPY_MOVE(SystemRegionTest)

    const SystemRegion region;
    const Instant summer = instantAt(u"2026-07-04T12:00:00Z"_s);
    const Instant winter = instantAt(u"2026-01-04T12:00:00Z"_s);

private:
    std::map<std::string, QByteArray> m_saved;
};

TEST_F(SystemRegionTest, speaksPosixEnglishWithoutAnyVariable)
{
    EXPECT_EQ(region.localeName(), QByteArray("en_US_POSIX"));
}

TEST_F(SystemRegionTest, asksLcAllThenLcTimeThenLang)
{
    qputenv("LANG", "de_DE.UTF-8");
    EXPECT_EQ(region.localeName(), QByteArray("de_DE"));
    qputenv("LC_TIME", "th_TH.UTF-8");
    EXPECT_EQ(region.localeName(), QByteArray("th_TH"));
    qputenv("LC_ALL", "ar_EG.UTF-8");
    EXPECT_EQ(region.localeName(), QByteArray("ar_EG"));
}

TEST_F(SystemRegionTest, passesOverEmptyVariables)
{
    qputenv("LC_ALL", "");
    qputenv("LC_TIME", "");
    qputenv("LANG", "de_DE.UTF-8");

    EXPECT_EQ(region.localeName(), QByteArray("de_DE"));
}

TEST_F(SystemRegionTest, picksUpAChangedZoneAtOnce)
{
    qputenv("TZ", "America/New_York");
    EXPECT_EQ(region.utcOffset(summer), -4 * 3600);
    EXPECT_EQ(region.utcOffset(winter), -5 * 3600);

    qputenv("TZ", "Asia/Kolkata");
    EXPECT_EQ(region.utcOffset(summer), 5 * 3600 + 1800);

    qputenv("TZ", "Pacific/Auckland");
    EXPECT_EQ(region.utcOffset(summer), 12 * 3600);
    EXPECT_EQ(region.utcOffset(winter), 13 * 3600);
}

TEST_F(SystemRegionTest, followsARuleWithoutAZoneName)
{
    qputenv("TZ", "EST5EDT,M3.2.0,M11.1.0");

    EXPECT_EQ(region.utcOffset(summer), -4 * 3600);
    EXPECT_EQ(region.utcOffset(winter), -5 * 3600);
}

TEST_F(SystemRegionTest, agreesWithTheZoneTableAroundChangesOfClocks)
{
    for (const QByteArray zone :
        { "America/New_York", "Asia/Kolkata", "Pacific/Auckland", "Australia/Lord_Howe" }) {
        qputenv("TZ", zone);
        const FixedRegion table("en_US", zone);
        for (int day = 0; day < 365; ++day) {
            const Instant moment = winter.advanced(day * 86400.0);
            ASSERT_EQ(region.utcOffset(moment), table.utcOffset(moment)) << zone.toStdString() << ' ' << day;
        }
    }
}

TEST_F(SystemRegionTest, givesTheClockItsLocaleAndZone)
{
    qputenv("LC_TIME", "ar_EG.UTF-8");
    qputenv("TZ", "Africa/Cairo");
    EXPECT_EQ(ClockText(region).at(winter, u"h:mm a"), u"٢:٠٠ م"_s);

    qputenv("LC_TIME", "C");
    qputenv("TZ", "UTC");
    EXPECT_EQ(ClockText(region).at(winter, u"h:mm a"), u"12:00 PM"_s);
}

TEST(IcuLocaleName, dropsTheEncodingAndTheModifierThatSaysNothing)
{
    EXPECT_EQ(icuLocaleName("de_DE.UTF-8"), QByteArray("de_DE"));
    EXPECT_EQ(icuLocaleName("de_DE.UTF-8@euro"), QByteArray("de_DE"));
    EXPECT_EQ(icuLocaleName("de_DE@euro"), QByteArray("de_DE"));
    EXPECT_EQ(icuLocaleName("de"), QByteArray("de"));
}

TEST(IcuLocaleName, keepsTheModifierThatNamesAScript)
{
    EXPECT_EQ(icuLocaleName("sr_RS.UTF-8@latin"), QByteArray("sr_Latn_RS"));
    EXPECT_EQ(icuLocaleName("sr_RS@latin"), QByteArray("sr_Latn_RS"));
    EXPECT_EQ(icuLocaleName("uz_UZ.UTF-8@cyrillic"), QByteArray("uz_Cyrl_UZ"));
    EXPECT_EQ(icuLocaleName("sr@latin"), QByteArray("sr_Latn"));
}

TEST(IcuLocaleName, isPosixEnglishForNoLocale)
{
    for (const char *name : { "", "C", "POSIX", "C.UTF-8", "C.utf8", ".UTF-8", "@euro" })
        EXPECT_EQ(icuLocaleName(name), QByteArray("en_US_POSIX")) << name;
}

} // namespace
} // namespace glimmet
