#include "ui/controls/TextPieces.h"

#include <QTextBoundaryFinder>

#include <algorithm>
#include <optional>

namespace glimmet {

namespace {

std::optional<QTextBoundaryFinder::BoundaryType> finderFor(QAccessible::TextBoundaryType kind)
{
    switch (kind) {
    case QAccessible::CharBoundary:
        return QTextBoundaryFinder::Grapheme;
    case QAccessible::WordBoundary:
        return QTextBoundaryFinder::Word;
    case QAccessible::SentenceBoundary:
        return QTextBoundaryFinder::Sentence;
    default:
        return {};
    }
}

} // namespace

QList<TextPiece> piecesOf(const QString &text, QAccessible::TextBoundaryType kind)
{
    const int length = static_cast<int>(text.size());
    if (length == 0)
        return {};
    QList<TextPiece> pieces{ { 0, length } };
    const auto type = finderFor(kind);
    if (!type)
        return pieces;
    QTextBoundaryFinder finder(*type, text);
    while (finder.toNextBoundary() > 0) {
        const int place = static_cast<int>(finder.position());
        if (place == length || !(finder.boundaryReasons() & QTextBoundaryFinder::StartOfItem))
            continue;
        pieces.last().end = place;
        pieces.append({ place, length });
    }
    return pieces;
}

int pieceAt(const QList<TextPiece> &pieces, int offset)
{
    const auto found = std::find_if(
        pieces.begin(), pieces.end(), [offset](const TextPiece &piece) { return offset < piece.end; });
    return static_cast<int>(found - pieces.begin());
}

} // namespace glimmet
