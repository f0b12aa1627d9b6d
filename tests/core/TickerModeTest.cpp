#include "core/TickerMode.h"

#include "tests/support/Printing.h"

#include <gmock/gmock.h>

#include <QHash>
#include <QMetaEnum>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;
using testing::ElementsAre;

TEST(TickerMode, listsItsCasesInTheOrderOfTheModeCards)
{
    QStringList names;
    for (const auto &[mode, name] : rawValues<TickerMode>)
        names.append(rawValue(mode));

    EXPECT_THAT(
        names, ElementsAre(u"Clock"_s, u"Quote"_s, u"Custom"_s, u"Revenue"_s, u"Crypto"_s, u"Deadline"_s));
}

TEST(TickerMode, declaresItsCasesInTheOrderOfTheirList)
{
    int position = 0;
    for (const auto &[mode, name] : rawValues<TickerMode>)
        EXPECT_EQ(static_cast<int>(mode), position++) << name.toString().toStdString();

    EXPECT_EQ(QMetaEnum::fromType<TickerMode>().keyCount(), position);
}

TEST(TickerMode, isBuiltAgainFromEachRawValue)
{
    for (const auto &[mode, name] : rawValues<TickerMode>)
        EXPECT_EQ(fromRawValue<TickerMode>(name), mode);
}

TEST(TickerMode, isNotBuiltFromAnyOtherText)
{
    for (const QString &text :
        { u""_s, u"clock"_s, u"CLOCK"_s, u"Clock "_s, u" Clock"_s, u"Weather"_s, u"0"_s })
        EXPECT_EQ(fromRawValue<TickerMode>(text), std::nullopt) << text.toStdString();
}

TEST(TickerMode, canBeAKey)
{
    const QHash<TickerMode, int> uses{ { TickerMode::Clock, 1 }, { TickerMode::Quote, 2 } };

    EXPECT_EQ(uses.value(TickerMode::Quote), 2);
    EXPECT_FALSE(uses.contains(TickerMode::Crypto));
}

} // namespace
} // namespace glimmet
