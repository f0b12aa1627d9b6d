#pragma once

#include "feed/FeedOptions.h"
#include "feed/LabelWatch.h"
#include "feed/LineOutput.h"
#include "feed/SessionLink.h"
#include "feed/StatusCommand.h"
#include "feed/ValueSplitter.h"

#include <memory>
#include <string>

namespace glimmet {

/// Prints the text on standard output, a line for each change, until nobody reads it any more. Meanwhile the
/// bus knows that a feed is read.
class Feed {
public:
    explicit Feed(const FeedOptions &options);
    ~Feed() = default;
    Feed(const Feed &) = delete;
    Feed &operator=(const Feed &) = delete;

    /// Returns the exit status: 0 once the reader has gone, 1 where standard output takes nothing, or that of
    /// the status command once it has ended.
    int run();

private:
    void handleConnection(GDBusConnection *connection);
    void leaveConnection();
    void handleText(const FeedText &text);
    void setText(const FeedText &text);
    void show();
    std::string line() const;
    void readClicks();
    void openPanel();
    void end(int status);
    void handleLostOutput(int reason);

    FeedFormat m_format;
    Owned<GMainLoop> m_loop;
    int m_status = 0;
    bool m_hasEnded = false;
    LineOutput m_output;
    FeedText m_text;
    std::string m_others; ///< what the status command printed last
    std::string m_shown;
    EventSource m_absence;
    SessionLink m_link;
    GDBusConnection *m_connection = nullptr;
    std::unique_ptr<LabelWatch> m_label;
    guint m_name = 0;
    ValueSplitter m_clicks;
    EventSource m_clicksWatch;
    std::unique_ptr<StatusCommand> m_command;
};

} // namespace glimmet
