#include "core/HostText.h"

#include <QList>

#include <algorithm>

namespace glimmet {
namespace {

bool breaksTheLine(QChar character)
{
    switch (character.category()) {
    case QChar::Other_Control:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return true;
    default:
        return false;
    }
}

bool showsNothing(char32_t character)
{
    switch (QChar::category(character)) {
    case QChar::Other_Control:
    case QChar::Other_Format:
    case QChar::Other_Surrogate:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
    case QChar::Separator_Space:
        return true;
    default:
        // A filler of Hangul, a pattern of no dots, and what chooses between forms of the sign before it.
        return character == 0x115F || character == 0x1160 || character == 0x3164 || character == 0xFFA0
            || character == 0x2800 || (character >= 0xFE00 && character <= 0xFE0F)
            || (character >= 0xE0100 && character <= 0xE01EF);
    }
}

} // namespace

bool hasInk(const QString &text)
{
    const QList<uint> characters = text.toUcs4();
    return !std::all_of(characters.begin(), characters.end(), showsNothing);
}

QString hostText(const QString &text)
{
    QString line;
    line.reserve(text.size());
    bool isInRun = false;
    for (const QChar character : text) {
        const bool breaks = breaksTheLine(character);
        if (!breaks)
            line.append(character);
        else if (!isInRun)
            line.append(u' ');
        isInRun = breaks;
    }
    return line;
}

} // namespace glimmet
