#include "ui/editors/ModeLabels.h"
#include "tests/support/Printing.h"

#include <QFile>

#include <gmock/gmock.h>

namespace glimmet {

TEST(ModeLabels, cardsStandInTheOrderOfTheModes)
{
    QStringList labels;
    for (const int mode : ModeLabels::all())
        labels.append(ModeLabels::label(mode));

    EXPECT_THAT(
        labels, testing::ElementsAre(u"Clock", u"Quote", u"Custom", u"Revenue", u"Crypto", u"Deadline"));
}

TEST(ModeLabels, eachModeHasItsSymbol)
{
    QStringList symbols;
    for (const int mode : ModeLabels::all())
        symbols.append(ModeLabels::symbol(mode));

    EXPECT_THAT(symbols,
        testing::ElementsAre(u"clock", u"text.bubble", u"pencil", u"dollarsign.circle",
            u"chart.line.uptrend.xyaxis", u"timer"));
}

TEST(ModeLabels, eachSymbolIsDrawn)
{
    for (const int mode : ModeLabels::all()) {
        const QString file =
            QStringLiteral(":/qt-project.org/imports/Glimmet/symbols/%1.svg").arg(ModeLabels::symbol(mode));
        EXPECT_TRUE(QFile::exists(file)) << qPrintable(file);
    }
}

} // namespace glimmet
