#include "tests/cases_player/Differences.h"

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;

constexpr qsizetype longestShown = 300; // characters

QString shown(const QString &text)
{
    return u'"' + (text.size() > longestShown ? text.first(longestShown) + u'…' : text) + u'"';
}

} // namespace

void Differences::compare(const QString &what, const QString &expected, const QString &got)
{
    if (expected != got)
        note(what, expected, got);
}

void Differences::note(const QString &what, const QString &expected, const QString &got)
{
    m_texts.append(what + ": expected "_L1 + shown(expected) + ", got "_L1 + shown(got));
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
