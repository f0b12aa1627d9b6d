#include "ui/controls/TextPieces.h"

#include <gmock/gmock.h>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

QStringList cut(const QString &text, QAccessible::TextBoundaryType kind)
{
    QStringList parts;
    for (const TextPiece &piece : piecesOf(text, kind))
        parts.append(text.mid(piece.start, piece.end - piece.start));
    return parts;
}

TEST(TextPieces, areWordsWithWhatFollowsThem)
{
    EXPECT_THAT(cut(u"hello, big  world ✦"_s, QAccessible::WordBoundary),
        ElementsAre(u"hello, ", u"big  ", u"world ✦"));
}

TEST(TextPieces, areTheWholeTextWhereItHasNoWord)
{
    for (const QString &text : { u"•••"_s, u"•"_s, u"✦ ✦"_s, u"  "_s })
        EXPECT_THAT(cut(text, QAccessible::WordBoundary), ElementsAre(text));
}

TEST(TextPieces, areCharactersAsTheyAreSeen)
{
    EXPECT_THAT(cut(u"a👍🏽•"_s, QAccessible::CharBoundary), ElementsAre(u"a", u"👍🏽", u"•"));
}

TEST(TextPieces, areTheLineAsAWhole)
{
    EXPECT_THAT(cut(u"one two. Three"_s, QAccessible::LineBoundary), ElementsAre(u"one two. Three"));
    EXPECT_THAT(cut(u"one two. Three"_s, QAccessible::SentenceBoundary), ElementsAre(u"one two. ", u"Three"));
}

TEST(TextPieces, areNoneInAnEmptyText)
{
    for (auto kind : { QAccessible::CharBoundary, QAccessible::WordBoundary, QAccessible::LineBoundary })
        EXPECT_THAT(piecesOf({}, kind), IsEmpty());
}

TEST(TextPieces, areFoundByTheCharactersInThem)
{
    const QList<TextPiece> words = piecesOf(u"one two"_s, QAccessible::WordBoundary);

    EXPECT_EQ(pieceAt(words, 0), 0);
    EXPECT_EQ(pieceAt(words, 3), 0);
    EXPECT_EQ(pieceAt(words, 4), 1);
    EXPECT_EQ(pieceAt(words, 7), 2);
}

} // namespace
} // namespace glimmet
