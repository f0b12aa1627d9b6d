#include "ui/controls/SingleLine.h"

#include <algorithm>

namespace glimmet {

namespace {

bool isLineBreak(QChar c)
{
    return c == u'\n' || c == u'\r' || c == QChar::LineSeparator || c == QChar::ParagraphSeparator;
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

} // namespace glimmet
