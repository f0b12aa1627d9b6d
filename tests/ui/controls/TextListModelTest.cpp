#include "ui/controls/TextListModel.h"
#include "tests/support/Printing.h"
#include "ui/controls/RowChanges.h"

#include <QAbstractItemModelTester>
#include <QRandomGenerator>

#include <gmock/gmock.h>

namespace glimmet {

namespace {

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

QStringList letters(const char *text)
{
    return QString::fromLatin1(text).split(QString(), Qt::SkipEmptyParts);
}

/// Such as "-1:bc +1:x": remove "b" and "c" from row 1 on, insert "x" before row 1.
QString steps(const char *before, const char *after)
{
    QStringList steps;
    for (const RowChange &change : rowChanges(letters(before), letters(after)))
        steps.append((change.kind == RowChange::Kind::Remove ? u"-"_s : u"+"_s)
            + QString::number(change.first) + u':' + change.rows.join(QString()));
    return steps.join(u' ');
}

} // namespace

TEST(RowChanges, anEqualListChangesNothing)
{
    EXPECT_EQ(steps("", ""), QString());
    EXPECT_EQ(steps("abc", "abc"), QString());
}

TEST(RowChanges, whatIsNewIsInserted)
{
    EXPECT_EQ(steps("", "ab"), u"+0:ab"_s);
    EXPECT_EQ(steps("ab", "abcd"), u"+2:cd"_s);
    EXPECT_EQ(steps("ab", "xaby"), u"+0:x +3:y"_s);
    EXPECT_EQ(steps("ab", "axb"), u"+1:x"_s);
}

TEST(RowChanges, whatIsGoneIsRemoved)
{
    EXPECT_EQ(steps("ab", ""), u"-0:ab"_s);
    EXPECT_EQ(steps("abc", "bc"), u"-0:a"_s);
    EXPECT_EQ(steps("abcd", "ad"), u"-1:bc"_s);
}

TEST(RowChanges, whatIsGoneInSeveralPlacesGoesFromTheEnd)
{
    EXPECT_EQ(steps("xaxbx", "ab"), u"-4:x -2:x -0:x"_s);
}

TEST(RowChanges, betweenTheCommonEndsRowsAreReplaced)
{
    EXPECT_EQ(steps("abcd", "axyd"), u"-1:bc +1:xy"_s);
    EXPECT_EQ(steps("abc", "xyz"), u"-0:abc +0:xyz"_s);
    EXPECT_EQ(steps("ab", "ba"), u"-0:ab +0:ba"_s);
    EXPECT_EQ(steps("aab", "aac"), u"-2:b +2:c"_s);
}

TEST(TextListModel, givesItsEntries)
{
    TextListModel model;
    model.setEntries({ u"BTC-USD"_s, u"ETH-USD"_s });

    EXPECT_EQ(model.rowCount(), 2);
    EXPECT_EQ(model.data(model.index(1), Qt::DisplayRole).toString(), u"ETH-USD"_s);
    EXPECT_FALSE(model.data(model.index(1), Qt::EditRole).isValid());
    EXPECT_FALSE(model.data(model.index(2), Qt::DisplayRole).isValid());
    EXPECT_EQ(model.roleNames().value(Qt::DisplayRole), "entry");
}

TEST(TextListModel, aRowSurvivesWhatHappensAroundIt)
{
    TextListModel model;
    model.setEntries(letters("abc"));
    const QPersistentModelIndex c(model.index(2));

    model.setEntries(letters("ac"));
    EXPECT_EQ(c.row(), 1);
    model.setEntries(letters("xyac"));
    EXPECT_EQ(c.row(), 3);

    EXPECT_EQ(c.data().toString(), u"c"_s);
}

TEST(TextListModel, tellsOfAChangeOnce)
{
    TextListModel model;
    int changes = 0;
    QObject::connect(&model, &TextListModel::entriesChanged, [&changes] { ++changes; });

    model.setEntries(letters("xaxb"));
    model.setEntries(letters("ab"));
    model.setEntries(letters("ab"));

    EXPECT_EQ(changes, 2);
}

TEST(TextListModel, anyListTurnsIntoAnyOther)
{
    QRandomGenerator random(1);
    TextListModel model;
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    for (int run = 0; run < 2000; ++run) {
        QStringList list;
        for (int i = random.bounded(8); i > 0; --i)
            list.append(QString(QChar(u'a' + random.bounded(4))));

        model.setEntries(list);

        ASSERT_EQ(model.entries(), list);
        ASSERT_EQ(model.rowCount(), list.size());
    }
}

} // namespace glimmet
