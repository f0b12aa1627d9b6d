#include "feed/StatusCommand.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>

namespace glimmet {
namespace {

constexpr int notFound = 127;
constexpr int bySignal = 128;

} // namespace

StatusCommand::StatusCommand(const std::vector<std::string> &words, Listener listener)
    : m_listener(std::move(listener))
{
    start(words);
}

StatusCommand::~StatusCommand()
{
    if (m_processWatch != 0) {
        g_source_remove(m_processWatch);
        kill(m_process, SIGTERM);
    }
    for (const int descriptor : { m_input, m_output })
        if (descriptor >= 0)
            close(descriptor);
}

void StatusCommand::start(const std::vector<std::string> &words)
{
    std::vector<char *> arguments;
    arguments.reserve(words.size() + 1);
    for (const std::string &word : words)
        arguments.push_back(const_cast<char *>(word.c_str()));
    arguments.push_back(nullptr);
    GError *error = nullptr;
    // GLib gives it the usual SIGPIPE, which the feed itself ignores.
    const bool isStarted = g_spawn_async_with_pipes(nullptr, arguments.data(), nullptr,
        GSpawnFlags(G_SPAWN_SEARCH_PATH | G_SPAWN_DO_NOT_REAP_CHILD), nullptr, nullptr, &m_process, &m_input,
        &m_output, nullptr, &error);
    const Owned<GError> failure(error);
    if (!isStarted) {
        std::fprintf(stderr, "glimmet-feed: %s\n", error->message);
        return m_listener.ended(notFound);
    }
    fcntl(m_input, F_SETFL, O_NONBLOCK);
    const auto ended = [](GPid, int status, gpointer self) {
        static_cast<StatusCommand *>(self)->end(status);
    };
    m_processWatch = g_child_watch_add(m_process, ended, this);
    m_outputWatch.watch(m_output, G_IO_IN, [this] { read(); });
}

void StatusCommand::read()
{
    std::array<char, 16384> bytes{};
    const ssize_t count = ::read(m_output, bytes.data(), bytes.size());
    if (count < 0 && (errno == EINTR || errno == EAGAIN))
        return;
    if (count <= 0)
        return m_outputWatch.stop();
    for (const std::string &blocks : m_stream.take({ bytes.data(), std::size_t(count) }))
        m_listener.blocks(blocks);
    if (m_stream.isBroken()) {
        std::fputs("glimmet-feed: the command breaks i3bar's protocol\n", stderr);
        m_outputWatch.stop();
        m_listener.ended(1);
    }
}

void StatusCommand::tellClick(const std::string &click)
{
    if (!m_stream.wantsClicks())
        return;
    // So short a text is taken by a pipe as a whole or not at all.
    const std::string text = (m_wasToldOfClicks ? "," : "[\n") + click + '\n';
    if (write(m_input, text.data(), text.size()) > 0)
        m_wasToldOfClicks = true;
}

void StatusCommand::end(int waitStatus)
{
    m_processWatch = 0;
    m_listener.ended(WIFEXITED(waitStatus) ? WEXITSTATUS(waitStatus) : bySignal + WTERMSIG(waitStatus));
}

} // namespace glimmet
