#pragma once

#include <QString>

namespace glimmet {

/// Writes diagnostic lines to standard output, each as a whole and at once, also into a pipe. A closed, full
/// or stuck standard output loses lines; it never ends or holds up the program. What a server sent must not
/// steer the terminal that shows it: controls and what turns the direction of text become blanks, but for the
/// tabs of a line and the line feeds of a text. Any thread.
///
/// A program that was started at login has the system's journal for its standard output, which keeps what it
/// gets and shows it to administrators: what is private is left out there.
class DiagnosticLog {
public:
    /// Takes over `descriptor` for writing only; SIGPIPE is ignored in the process from now on.
    explicit DiagnosticLog(int descriptor = 1);
    ~DiagnosticLog();
    Q_DISABLE_COPY_MOVE(DiagnosticLog)

    /// Writes "[glimmet] " and `message`. Line feeds in it become blanks, too.
    void line(const QString &message);
    /// Writes `message` alone. Line feeds in it become blanks, too.
    void plainLine(const QString &message);
    /// The same as `line`, for what tells of the user's own affairs.
    void privateLine(const QString &message);
    /// Writes "[glimmet] " and `title` as a line, and below it `text` with its line feeds; both tell of the
    /// user's own affairs.
    void privateText(const QString &title, const QString &text);

private:
    void write(QByteArray bytes);

    int m_descriptor;
    bool m_isJournal = false;
    bool m_isOwn = false;
    bool m_mayBlock = false;
    bool m_isInsideLine = false;
};

} // namespace glimmet
