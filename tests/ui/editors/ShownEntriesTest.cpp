#include "ui/editors/ShownEntries.h"

#include "tests/support/Printing.h"

#include <QRandomGenerator>

#include <gtest/gtest.h>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;

QStringList letters(const char *text)
{
    return QString::fromLatin1(text).split(QString(), Qt::SkipEmptyParts);
}

/// The entries of a list that is `now`, where nothing was removed.
QList<ShownEntry> listed(const char *now)
{
    return entriesAfter({}, letters(now), ShownEntry::inList);
}

/// Such as "a(b1)c": "b" went by removal 1.
QString text(const QList<ShownEntry> &entries)
{
    QString text;
    for (const ShownEntry &entry : entries)
        text += entry.removal == ShownEntry::inList
            ? entry.key
            : QStringLiteral("(%1%2)").arg(entry.key).arg(entry.removal);
    return text;
}

QString textAfter(const QList<ShownEntry> &entries, const char *now, int removal = ShownEntry::inList)
{
    return text(entriesAfter(entries, letters(now), removal));
}

TEST(ShownEntries, whatIsRemovedKeepsItsPlace)
{
    EXPECT_EQ(textAfter(listed("abc"), "ac", 1), u"a(b1)c"_s);
    EXPECT_EQ(textAfter(listed("abc"), "", 1), u"(a1)(b1)(c1)"_s);
    EXPECT_EQ(textAfter(listed("aba"), "b", 1), u"(a1)b(a1)"_s);
}

TEST(ShownEntries, whatGoesOtherwiseGoes)
{
    EXPECT_EQ(textAfter(listed("abc"), "ac"), u"ac"_s);
}

TEST(ShownEntries, severalRemovalsAreToldApart)
{
    const QList<ShownEntry> once = entriesAfter(listed("abcd"), letters("acd"), 1);

    EXPECT_EQ(textAfter(once, "ad", 2), u"a(b1)(c2)d"_s);
}

TEST(ShownEntries, whatComesHasItsPlaceAmongThem)
{
    const QList<ShownEntry> removed = entriesAfter(listed("abc"), letters("ac"), 1);

    EXPECT_EQ(textAfter(removed, "acx"), u"a(b1)cx"_s);
    EXPECT_EQ(textAfter(removed, "xac"), u"xa(b1)c"_s);
    EXPECT_EQ(textAfter(entriesAfter(listed("ab"), letters("a"), 1), "ax"), u"a(b1)x"_s);
}

TEST(ShownEntries, whatReplacesAnotherStandsInItsPlace)
{
    const QList<ShownEntry> removed = entriesAfter(listed("abc"), letters("ac"), 1);

    EXPECT_EQ(textAfter(removed, "xc"), u"x(b1)c"_s);
    EXPECT_EQ(textAfter(removed, "ax"), u"a(b1)x"_s);
}

TEST(ShownEntries, whatCameBackByItselfIsNoLongerRemoved)
{
    const QList<ShownEntry> removed = entriesAfter(listed("abc"), letters("bc"), 1);

    EXPECT_EQ(textAfter(removed, "bca"), u"bca"_s);
}

TEST(ShownEntries, arePutBackWhereTheyStand)
{
    QList<ShownEntry> entries = entriesAfter(listed("abcd"), letters("acd"), 1);
    entries = entriesAfter(entries, letters("cd"), 2);
    entries = entriesAfter(entries, letters("dx"), ShownEntry::inList);

    EXPECT_EQ(keysInList(entries), letters("dx"));
    EXPECT_EQ(keysInList(entriesWithBack(entries, 1)), letters("bdx"));
    EXPECT_EQ(keysInList(entriesWithBack(entries, 2)), letters("adx"));
    EXPECT_EQ(text(entriesWithBack(entries, 2)), u"a(b1)dx"_s);
}

TEST(ShownEntries, areForgotten)
{
    const QList<ShownEntry> entries = entriesAfter(listed("abc"), letters("a"), 1);

    EXPECT_EQ(text(entriesWithout(entries, 1)), u"a"_s);
    EXPECT_EQ(text(entriesWithout(entries, 2)), u"a(b1)(c1)"_s);
}

TEST(ShownEntries, tellTheListWhateverHappensToIt)
{
    QRandomGenerator random(1);
    QList<ShownEntry> entries;
    for (int run = 1; run < 2000; ++run) {
        QStringList list = keysInList(entries);
        const bool removes = run % 3 == 0 && !list.isEmpty();
        if (removes) {
            list.removeAll(list.at(random.bounded(static_cast<int>(list.size()))));
        } else {
            list.clear();
            for (int i = random.bounded(8); i > 0; --i)
                list.append(QString(QChar(u'a' + random.bounded(6))));
        }

        entries = entriesAfter(entries, list, removes ? run : ShownEntry::inList);

        ASSERT_EQ(keysInList(entries), list);
        if (run % 10 == 0)
            entries = entriesWithout(entries, run - 1);
    }
}

} // namespace
} // namespace glimmet
