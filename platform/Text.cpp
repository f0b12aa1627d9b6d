#include "platform/Text.h"

#include <array>
#include <charconv>

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

QString oneDecimal(double value)
{
    std::array<char, 320> digits; // The largest double has 309 before its point.
    const auto written = std::to_chars(digits.begin(), digits.end(), value, std::chars_format::fixed, 1).ptr;
    return QString::fromLatin1(digits.begin(), written - digits.begin());
}

} // namespace glimmet
