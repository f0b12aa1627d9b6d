#pragma once

#include <QString>

namespace glimmet {

/// Writes diagnostic lines to standard output, each as a whole and at once, also into a pipe. A closed, full
/// or stuck standard output loses lines; it never ends or holds up the program. Any thread.
class DiagnosticLog {
public:
    /// Takes over `descriptor` for writing only; SIGPIPE is ignored in the process from now on.
    explicit DiagnosticLog(int descriptor = 1);
    ~DiagnosticLog();
    Q_DISABLE_COPY_MOVE(DiagnosticLog)

    /// Writes "[glimmet] " and `message`. Line breaks in it become blanks.
    void line(const QString &message);
    /// Writes `message` alone. Line breaks in it become blanks.
    void plainLine(const QString &message);
    /// Writes "[glimmet] " and `title` as a line, and below it `text` as it is, line breaks too.
    void text(const QString &title, const QString &text);

private:
    void write(QByteArray bytes);

    int m_descriptor;
    bool m_isOwn = false;
    bool m_mayBlock = false;
    bool m_isInsideLine = false;
};

} // namespace glimmet
