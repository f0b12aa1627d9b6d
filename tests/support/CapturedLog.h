#pragma once

#include "platform/DiagnosticLog.h"

#include <QByteArray>

#include <sys/mman.h>
#include <unistd.h>

namespace glimmet {

/// A log of any length that a test can read.
class CapturedLog {
public:
    CapturedLog()
        : m_file(memfd_create("log", MFD_CLOEXEC))
        , m_log(m_file)
    {
    }
    ~CapturedLog() { close(m_file); }
    Q_DISABLE_COPY_MOVE(CapturedLog)

    DiagnosticLog &log() { return m_log; }
    /// All that was written so far.
    QByteArray written() const
    {
        QByteArray all(static_cast<qsizetype>(lseek(m_file, 0, SEEK_CUR)), '\0');
        const ssize_t size = pread(m_file, all.data(), static_cast<size_t>(all.size()), 0);
        return size == all.size() ? all : QByteArray("the log cannot be read");
    }

private:
    int m_file;
    DiagnosticLog m_log;
};

} // namespace glimmet
