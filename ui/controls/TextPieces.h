#pragma once

#include <QAccessible>
#include <QList>
#include <QString>

namespace glimmet {

/// A part of a text by the places of its first character and of the one after its last.
struct TextPiece {
    int start = 0;
    int end = 0;

    friend bool operator==(const TextPiece &, const TextPiece &) = default;
};

/// The text from its beginning to its end in pieces of that kind, each with what follows it up to the next. A
/// text without a single word is one piece: asked for its words, the toolkit's own search never ends
/// (Qt 6.4).
QList<TextPiece> piecesOf(const QString &text, QAccessible::TextBoundaryType kind);

/// The place in `pieces` of the one that holds the character at `offset`; their number, at the text's end.
int pieceAt(const QList<TextPiece> &pieces, int offset);

} // namespace glimmet
