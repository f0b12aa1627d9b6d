#include "ui/controls/LineText.h"

#include <QList>
#include <QTextBoundaryFinder>

#include <algorithm>

namespace glimmet {
namespace {

bool isLineBreak(QChar c)
{
    return c == u'\n' || c == u'\r' || c == QChar::LineSeparator || c == QChar::ParagraphSeparator;
}

/// Longer than any emoji that is in use.
constexpr int searchedLength = 64;

/// What joins code points to an emoji: the zero-width joiner, the emoji style, the keycap, the skin tones,
/// the letters of flags and the tags of regions.
bool joinsEmoji(char32_t c)
{
    return c == 0x200d || c == 0xfe0f || c == 0x20e3 || (c >= 0x1f3fb && c <= 0x1f3ff)
        || (c >= 0x1f1e6 && c <= 0x1f1ff) || (c >= 0xe0020 && c <= 0xe007f);
}

} // namespace

QString singleLine(const QString &text, int *position)
{
    if (std::none_of(text.begin(), text.end(), isLineBreak))
        return text;
    QString line;
    line.reserve(text.size());
    const qsizetype marked = position == nullptr ? -1 : *position;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const bool isSecondOfPair = text[i] == u'\n' && i > 0 && text[i - 1] == u'\r';
        if (!isSecondOfPair)
            line.append(isLineBreak(text[i]) ? QChar(u' ') : text[i]);
        if (i + 1 == marked)
            *position = static_cast<int>(line.size());
    }
    return line;
}

int emojiLengthBefore(const QString &text, int position)
{
    // A part is enough, and keeps the keystroke short in a long text.
    const int start = std::max(position - searchedLength, 0);
    const QString part = text.mid(start, position - start);
    QTextBoundaryFinder characters(QTextBoundaryFinder::Grapheme, part);
    characters.toEnd();
    const qsizetype begin = std::max<qsizetype>(characters.toPreviousBoundary(), 0);
    const QList<uint> points = part.mid(begin).toUcs4();
    if (points.size() < 2 || QChar::isLetter(points.first()))
        return 0;
    const bool isEmoji = std::any_of(points.begin(), points.end(), joinsEmoji);
    return isEmoji ? static_cast<int>(part.size() - begin) : 0;
}

} // namespace glimmet
