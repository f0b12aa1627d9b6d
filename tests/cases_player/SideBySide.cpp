#include "tests/cases_player/SideBySide.h"

namespace glimmet {

Differences compareLog(const AnswerCase &played, const QByteArray &output)
{
    Differences differences;
    const QList<QByteArray> lines = output.split('\n');
    for (const QString &line : played.log)
        if (!lines.contains(line.toUtf8()))
            differences.note(QStringLiteral("standard output"), line, QString::fromUtf8(output));
    return differences;
}

} // namespace glimmet
