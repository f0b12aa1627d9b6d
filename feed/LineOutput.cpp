#include "feed/LineOutput.h"

#include <poll.h>
#include <unistd.h>

#include <cerrno>

namespace glimmet {
namespace {

/// Whether a write would not wait, or fail.
bool hasRoom(int descriptor)
{
    pollfd state{ descriptor, POLLOUT, 0 };
    return poll(&state, 1, 0) == 1;
}

} // namespace

LineOutput::LineOutput(int descriptor, Ended ended)
    : m_descriptor(descriptor)
    , m_ended(std::move(ended))
{
    // A pipe whose reader is gone is an error, a terminal that is gone hangs up.
    m_loss.watch(m_descriptor, GIOCondition(G_IO_ERR | G_IO_HUP), [this] {
        m_loss.stop();
        m_ended(EPIPE);
    });
}

void LineOutput::show(const std::string &line)
{
    m_next = line + '\n';
    write();
}

void LineOutput::write()
{
    while (hasRoom(m_descriptor)) {
        if (m_begun.empty() && m_next) {
            m_begun = std::move(*m_next);
            m_next.reset();
        }
        if (m_begun.empty())
            return m_room.stop();
        const ssize_t written = ::write(m_descriptor, m_begun.data(), m_begun.size());
        if (written >= 0)
            m_begun.erase(0, std::size_t(written));
        else if (errno == EAGAIN)
            break;
        else if (errno != EINTR)
            return m_ended(errno);
    }
    if (!m_room.isRunning())
        m_room.watch(m_descriptor, G_IO_OUT, [this] { write(); });
}

} // namespace glimmet
