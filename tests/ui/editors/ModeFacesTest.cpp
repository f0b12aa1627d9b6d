#include "ui/editors/ModeFaces.h"
#include "tests/support/Printing.h"

#include <QFile>

#include <gmock/gmock.h>

namespace glimmet {

TEST(ModeFaces, cardsStandInTheOrderOfTheModes)
{
    QStringList labels;
    for (const int mode : ModeFaces::all())
        labels.append(ModeFaces::label(mode));

    EXPECT_THAT(
        labels, testing::ElementsAre(u"Clock", u"Quote", u"Custom", u"Revenue", u"Crypto", u"Deadline"));
}

TEST(ModeFaces, eachModeHasItsSymbol)
{
    QStringList symbols;
    for (const int mode : ModeFaces::all())
        symbols.append(ModeFaces::symbol(mode));

    EXPECT_THAT(symbols,
        testing::ElementsAre(u"clock", u"text.bubble", u"pencil", u"dollarsign.circle",
            u"chart.line.uptrend.xyaxis", u"timer"));
}

TEST(ModeFaces, eachSymbolIsDrawn)
{
    for (const int mode : ModeFaces::all()) {
        const QString file =
            QStringLiteral(":/qt-project.org/imports/Glimmet/symbols/%1.svg").arg(ModeFaces::symbol(mode));
        EXPECT_TRUE(QFile::exists(file)) << qPrintable(file);
    }
}

} // namespace glimmet
