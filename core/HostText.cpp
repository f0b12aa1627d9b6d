#include "core/HostText.h"

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

} // namespace

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
