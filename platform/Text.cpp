#include "platform/Text.h"

namespace glimmet {
namespace {

bool isBlank(QChar character)
{
    return character == u'\t' || character.category() == QChar::Separator_Space;
}

} // namespace

QString trimmedBlanks(const QString &text)
{
    qsizetype first = 0;
    qsizetype last = text.size();
    while (first < last && isBlank(text.at(first)))
        ++first;
    while (last > first && isBlank(text.at(last - 1)))
        --last;
    return text.sliced(first, last - first);
}

} // namespace glimmet
