#pragma once

#include "platform/DiagnosticLog.h"

#include <QByteArray>

#include <sys/mman.h>
#include <unistd.h>

namespace glimmet {

/// A log whose output is kept in memory and can be read at any time, on any thread.
class CapturedOutput {
public:
    CapturedOutput()
        : m_file(memfd_create("output", MFD_CLOEXEC))
        , m_log(m_file)
    {
    }
    ~CapturedOutput() { close(m_file); }
    Q_DISABLE_COPY_MOVE(CapturedOutput)

    DiagnosticLog &log() { return m_log; }

    QByteArray written() const
    {
        QByteArray all(lseek(m_file, 0, SEEK_CUR), '\0');
        const ssize_t size = pread(m_file, all.data(), static_cast<size_t>(all.size()), 0);
        return all.left(size);
    }

private:
    int m_file;
    DiagnosticLog m_log;
};

} // namespace glimmet
