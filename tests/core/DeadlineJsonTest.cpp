#include "core/Deadline.h"

#include "tests/support/Printing.h"

#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <bit>
#include <cmath>
#include <limits>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;

const QString lowerId = u"0a1b2c3d-4e5f-4a6b-8c7d-9e8f7a6b5c4d"_s;

Deadline deadline(const QString &title, double date)
{
    return { QUuid(lowerId), title, { date } };
}

std::uint64_t bits(double value)
{
    return std::bit_cast<std::uint64_t>(value);
}

class DeadlineDate : public testing::TestWithParam<double> {};

TEST_P(DeadlineDate, isKeptToTheLastBit)
{
    const auto json = deadlinesToJson({ deadline(u"launch"_s, GetParam()) });
    ASSERT_TRUE(json);
    const auto read = deadlinesFromJson(*json);
    ASSERT_TRUE(read);

    EXPECT_EQ(bits(read->first().date.secondsSince2001), bits(GetParam())) << json->toStdString();
}

INSTANTIATE_TEST_SUITE_P(Values, DeadlineDate,
    testing::Values(0.0, 1.0, 0.1, 0.1 + 0.2, 1.0 / 3, 800'000'000.123456789, -978'307'200.0, -1e-300, 1e-300,
        std::numeric_limits<double>::denorm_min(), std::numeric_limits<double>::max(),
        std::numeric_limits<double>::lowest(), 9007199254740993.0, 9007199254740994.0, 9223372036854775808.0,
        1e15, 1e16, 1e17, 1e21, 1e22, 1e23, 123456789012345680.0));

TEST(DeadlineJson, readsAZeroWithASignAsTheSameMoment)
{
    EXPECT_EQ(deadlinesFromJson(*deadlinesToJson({ deadline(u"launch"_s, -0.0) })),
        QList<Deadline>{ deadline(u"launch"_s, 0.0) });
}

TEST(DeadlineJson, hasExactlyThreeMembersWithTheIdentityInUpperCase)
{
    const auto json = deadlinesToJson({ deadline(u"launch"_s, 800'000'000.5) });

    ASSERT_TRUE(json);
    const QJsonObject expected{ { u"id"_s, lowerId.toUpper() }, { u"title"_s, u"launch"_s },
        { u"date"_s, 800'000'000.5 } };
    EXPECT_EQ(QJsonDocument::fromJson(*json).array(), QJsonArray({ expected }));
}

TEST(DeadlineJson, isCompact)
{
    const auto json = deadlinesToJson({ deadline(u"launch"_s, 1), deadline(u"land"_s, 2) });

    ASSERT_TRUE(json);
    EXPECT_FALSE(json->contains(' ') || json->contains('\n'));
    EXPECT_TRUE(json->startsWith("[{") && json->endsWith("}]"));
}

TEST(DeadlineJson, isAnEmptyArrayForNoDeadlines)
{
    EXPECT_EQ(deadlinesToJson({}), QByteArray("[]"));
    EXPECT_EQ(deadlinesFromJson("[]"), QList<Deadline>());
}

TEST(DeadlineJson, keepsTheOrderOfTheList)
{
    const QList<Deadline> list{ deadline(u"b"_s, 2), deadline(u"a"_s, 1), deadline(u"c"_s, 3) };

    EXPECT_EQ(deadlinesFromJson(*deadlinesToJson(list)), list);
}

TEST(DeadlineJson, keepsEveryTitle)
{
    for (const QString &title :
        { u""_s, u"\"quoted\" \\ 'single'"_s, u"two\nlines\ttab\r"_s, u"🚀 ⚡️ é ✦"_s,
            u"\u0000\u0001\u007F\u2028"_s, u"</script>"_s, QString(100'000, u'x'), QString(QChar(0xD83D)) }) {
        const QList<Deadline> list{ deadline(title, 1) };
        EXPECT_EQ(deadlinesFromJson(*deadlinesToJson(list)), list) << title.toStdString();
    }
}

TEST(DeadlineJson, isNothingWhereADateIsNotFinite)
{
    for (const double date : { std::nan(""), HUGE_VAL, -HUGE_VAL })
        EXPECT_EQ(deadlinesToJson({ deadline(u"launch"_s, 1), deadline(u"never"_s, date) }), std::nullopt);
}

TEST(DeadlineJson, isReadWithTheIdentityInEitherCase)
{
    for (const QString &id : { lowerId, lowerId.toUpper(), u"0a1B2c3D-4e5F-4a6B-8c7D-9e8F7a6B5c4D"_s }) {
        const QByteArray json = "[{\"id\":\"" + id.toUtf8() + "\",\"title\":\"launch\",\"date\":1}]";
        EXPECT_EQ(deadlinesFromJson(json), QList<Deadline>{ deadline(u"launch"_s, 1) });
    }
}

TEST(DeadlineJson, isReadWithItsMembersInAnyOrder)
{
    const QByteArray id = "\"id\":\"" + lowerId.toUtf8() + "\"";
    const QByteArrayList members{ id, "\"title\":\"launch\"", "\"date\":1.5" };
    for (const auto &order :
        { std::array{ 0, 1, 2 }, { 0, 2, 1 }, { 1, 0, 2 }, { 1, 2, 0 }, { 2, 0, 1 }, { 2, 1, 0 } }) {
        const QByteArray json =
            "[{" + members.at(order[0]) + ',' + members.at(order[1]) + ',' + members.at(order[2]) + "}]";
        EXPECT_EQ(deadlinesFromJson(json), QList<Deadline>{ deadline(u"launch"_s, 1.5) })
            << json.toStdString();
    }
}

TEST(DeadlineJson, isReadOverMembersThatItDoesNotKnowAndWhiteSpace)
{
    const QByteArray json = " [ { \"colour\" : [1, {\"a\": null}], \"date\" : 1, \"id\" : \""
        + lowerId.toUtf8() + "\",\n\"title\" : \"launch\" } ] ";

    EXPECT_EQ(deadlinesFromJson(json), QList<Deadline>{ deadline(u"launch"_s, 1) });
}

class DeadlineJsonRefused : public testing::TestWithParam<const char *> {};

TEST_P(DeadlineJsonRefused, readsAsNothing)
{
    QByteArray json = GetParam();
    json.replace("ID", "\"" + lowerId.toUtf8() + "\"");

    EXPECT_EQ(deadlinesFromJson(json), std::nullopt) << json.toStdString();
}

INSTANTIATE_TEST_SUITE_P(Texts, DeadlineJsonRefused,
    testing::Values("", "null", "{}", "1", "\"[]\"", "[1]", "[null]", "[[]]", "[{}]", "[", "[]]",
        "[{\"id\":ID,", "[{\"title\":\"a\",\"date\":1}]", "[{\"id\":ID,\"date\":1}]",
        "[{\"id\":ID,\"title\":\"a\"}]", "[{\"id\":1,\"title\":\"a\",\"date\":1}]",
        "[{\"id\":null,\"title\":\"a\",\"date\":1}]", "[{\"id\":\"\",\"title\":\"a\",\"date\":1}]",
        "[{\"id\":\"not-a-uuid\",\"title\":\"a\",\"date\":1}]",
        "[{\"id\":\"{0a1b2c3d-4e5f-4a6b-8c7d-9e8f7a6b5c4d}\",\"title\":\"a\",\"date\":1}]",
        "[{\"id\":\"0a1b2c3d4e5f4a6b8c7d9e8f7a6b5c4d\",\"title\":\"a\",\"date\":1}]",
        "[{\"id\":\"0a1b2c3d-4e5f-4a6b-8c7d-9e8f7a6b5c4g\",\"title\":\"a\",\"date\":1}]",
        "[{\"id\":ID,\"title\":1,\"date\":1}]", "[{\"id\":ID,\"title\":null,\"date\":1}]",
        "[{\"id\":ID,\"title\":[\"a\"],\"date\":1}]", "[{\"id\":ID,\"title\":\"a\",\"date\":\"1\"}]",
        "[{\"id\":ID,\"title\":\"a\",\"date\":null}]", "[{\"id\":ID,\"title\":\"a\",\"date\":true}]",
        "[{\"id\":ID,\"title\":\"a\",\"date\":\"2026-05-04T08:00:00Z\"}]",
        "[{\"id\":ID,\"title\":\"a\",\"date\":1e400}]",
        "[{\"id\":ID,\"title\":\"a\",\"date\":1},{\"id\":ID,\"title\":\"b\"}]",
        "[{\"Id\":ID,\"Title\":\"a\",\"Date\":1}]", "[{\"id\":ID,\"title\":\"a\xFF\",\"date\":1}]"));

} // namespace
} // namespace glimmet
