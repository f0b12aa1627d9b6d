#pragma once

#include <QStringList>

namespace glimmet {

/// What came otherwise than it must, in words.
class Differences {
public:
    /// Notes a difference where `got` is not `expected`; `what` names it.
    void compare(const QString &what, const QString &expected, const QString &got);
    /// Notes that `what` is not as expected.
    void note(const QString &what, const QString &expected, const QString &got);
    void add(const Differences &others) { m_texts += others.m_texts; }

    bool isEmpty() const { return m_texts.isEmpty(); }
    /// The first one, and how many more there are, on one line.
    QString summary() const;

private:
    QStringList m_texts;
};

} // namespace glimmet
