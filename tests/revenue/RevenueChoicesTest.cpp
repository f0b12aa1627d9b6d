#include "revenue/RevenueChoices.h"

#include "tests/support/Printing.h"

#include <gmock/gmock.h>

#include <QHash>
#include <QMetaEnum>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;
using testing::ElementsAre;

template <typename Enum> QStringList names()
{
    QStringList list;
    for (const auto &[value, name] : rawValues<Enum>)
        list.append(rawValue(value));
    return list;
}

TEST(RevenueProvider, listsThePlatformsInDisplayOrder)
{
    EXPECT_THAT(names<RevenueProvider>(),
        ElementsAre(u"Polar"_s, u"RevenueCat"_s, u"Dodo"_s, u"Stripe"_s, u"Lemon Squeezy"_s));
}

TEST(RevenueMode, listsThePeriodsInDisplayOrder)
{
    EXPECT_THAT(names<RevenueMode>(), ElementsAre(u"Today"_s, u"Week"_s, u"Month"_s, u"All Time"_s));
}

TEST(RevenueMetric, listsTheFiguresInDisplayOrder)
{
    EXPECT_THAT(names<RevenueMetric>(), ElementsAre(u"revenue"_s, u"orders"_s, u"avg"_s, u"top"_s));
}

template <typename Enum> class RevenueChoice : public testing::Test {};
using Choices = testing::Types<RevenueProvider, RevenueMode, RevenueMetric>;
TYPED_TEST_SUITE(RevenueChoice, Choices);

TYPED_TEST(RevenueChoice, isDeclaredInTheOrderOfItsList)
{
    int position = 0;
    for (const auto &[value, name] : rawValues<TypeParam>)
        EXPECT_EQ(static_cast<int>(value), position++) << name.toString().toStdString();

    EXPECT_EQ(QMetaEnum::fromType<TypeParam>().keyCount(), position);
}

TYPED_TEST(RevenueChoice, isBuiltAgainFromEachRawValue)
{
    for (const auto &[value, name] : rawValues<TypeParam>)
        EXPECT_EQ(fromRawValue<TypeParam>(name), value);
}

TYPED_TEST(RevenueChoice, isNotBuiltFromAnyOtherText)
{
    for (const QString &text :
        { u""_s, u"all time"_s, u"AllTime"_s, u"polar"_s, u"Revenue"_s, u" avg"_s, u"None"_s })
        EXPECT_EQ(fromRawValue<TypeParam>(text), std::nullopt) << text.toStdString();
}

TYPED_TEST(RevenueChoice, canBeAKey)
{
    QHash<TypeParam, QString> byValue;
    for (const auto &[value, name] : rawValues<TypeParam>)
        byValue.insert(value, name.toString());

    EXPECT_EQ(byValue.size(), static_cast<qsizetype>(rawValues<TypeParam>.size()));
}

} // namespace
} // namespace glimmet
