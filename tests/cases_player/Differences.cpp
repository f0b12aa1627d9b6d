#include "tests/cases_player/Differences.h"

namespace glimmet {

using namespace Qt::StringLiterals;

void Differences::compare(const QString &what, const QString &expected, const QString &got)
{
    if (expected != got)
        note(what, expected, got);
}

void Differences::note(const QString &what, const QString &expected, const QString &got)
{
    m_texts.append(what + " expected "_L1 + expected + ", got "_L1 + got);
}

QString Differences::summary() const
{
    QString line = m_texts.first();
    line.replace(u'\n', u"⏎"_s);
    if (m_texts.size() > 1)
        line += " (and "_L1 + QString::number(m_texts.size() - 1) + " more)"_L1;
    return line;
}

} // namespace glimmet
