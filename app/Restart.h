#pragma once

#include <QByteArrayList>
#include <QString>

namespace glimmet {

/// The program as it was started, to be started again the same way: as the file that lies at its place by
/// then, which after an update is another one.
class Restart {
public:
    /// Main's own arguments. An application object exists.
    Restart(int argc, char *argv[]);

    /// The program shall run again when this run has ended.
    void want() { m_isWanted = true; }
    bool isWanted() const { return m_isWanted; }
    /// Takes this process over, so that whatever watches over it goes on doing so. Everything of this run has
    /// to be gone: the name on the bus above all, else the next run would hand over to this one. Returns only
    /// where that fails.
    void now() const;

private:
    QByteArray m_program;
    QByteArrayList m_arguments;
    bool m_isWanted = false;
};

} // namespace glimmet
