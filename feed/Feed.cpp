#include "feed/Feed.h"

#include "feed/BusCalls.h"
#include "feed/BusNames.h"
#include "feed/Formats.h"
#include "feed/I3bar.h"

#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>

namespace glimmet {
namespace {

/// A program that starts again, as after an update, is back within this time, and its text need not go.
constexpr std::chrono::seconds absencePatience{ 2 };

} // namespace

Feed::Feed(const FeedOptions &options)
    : m_format(options.format)
    , m_loop(g_main_loop_new(nullptr, FALSE))
    , m_output(STDOUT_FILENO, [this](int reason) { handleLostOutput(reason); })
    , m_link([this](GDBusConnection *connection) { handleConnection(connection); })
{
    if (m_format != FeedFormat::I3bar)
        return;
    m_output.show(i3barOpening());
    m_clicksWatch.watch(STDIN_FILENO, G_IO_IN, [this] { readClicks(); });
    if (options.command.empty())
        return;
    const auto takeBlocks = [this](const std::string &blocks) {
        m_others = blocks;
        show();
    };
    m_command = std::make_unique<StatusCommand>(
        options.command, StatusCommand::Listener{ takeBlocks, [this](int status) { end(status); } });
}

int Feed::run()
{
    if (!m_hasEnded)
        g_main_loop_run(m_loop.get());
    return m_status;
}

void Feed::handleConnection(GDBusConnection *connection)
{
    leaveConnection();
    m_connection = connection;
    if (!connection)
        return handleText(std::nullopt);
    // Several feeds may run: those that come later wait for the name.
    m_name = g_bus_own_name_on_connection(
        connection, busNames::feed, G_BUS_NAME_OWNER_FLAGS_NONE, nullptr, nullptr, nullptr, nullptr);
    m_label = std::make_unique<LabelWatch>(connection, [this](const FeedText &text) { handleText(text); });
}

void Feed::leaveConnection()
{
    m_label.reset();
    if (m_name != 0)
        g_bus_unown_name(std::exchange(m_name, 0));
}

void Feed::handleText(const FeedText &text)
{
    if (text) {
        m_absence.stop();
        setText(text);
    } else if (m_text && !m_absence.isRunning()) {
        m_absence.repeat(absencePatience, [this] {
            m_absence.stop();
            setText(std::nullopt);
        });
    }
}

void Feed::setText(const FeedText &text)
{
    m_text = text;
    show();
}

void Feed::show()
{
    std::string next = line();
    if (next == m_shown)
        return;
    m_shown = std::move(next);
    m_output.show(m_shown);
}

std::string Feed::line() const
{
    return m_format == FeedFormat::I3bar ? i3barLine(m_text, m_others) : formatted(m_format, m_text);
}

void Feed::readClicks()
{
    std::array<char, 4096> bytes{};
    const ssize_t count = read(STDIN_FILENO, bytes.data(), bytes.size());
    if (count < 0 && (errno == EINTR || errno == EAGAIN))
        return;
    if (count <= 0)
        return m_clicksWatch.stop();
    for (const std::string &click : m_clicks.take({ bytes.data(), std::size_t(count) })) {
        if (isClickOnText(click))
            openPanel();
        else if (m_command)
            m_command->tellClick(click);
    }
}

void Feed::openPanel()
{
    if (m_connection)
        askForPanel(m_connection);
}

void Feed::end(int status)
{
    m_status = status;
    m_hasEnded = true;
    g_main_loop_quit(m_loop.get());
}

void Feed::handleLostOutput(int reason)
{
    if (reason == EPIPE)
        return end(0);
    std::fprintf(stderr, "glimmet-feed: standard output: %s\n", std::strerror(reason));
    end(1);
}

} // namespace glimmet
