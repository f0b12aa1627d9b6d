#pragma once

#include "feed/Glib.h"
#include "feed/StatusStream.h"

#include <functional>
#include <string>
#include <vector>

namespace glimmet {

/// A program that prints status lines as i3bar takes them, such as i3status. It runs in the feed's process
/// group, so that a hidden bar halts both, and is asked to end with this object.
class StatusCommand {
public:
    struct Listener {
        std::function<void(const std::string &)> blocks; ///< an array, for each status line
        std::function<void(int)> ended; ///< the exit status as a shell tells it; 1 for broken lines
    };

    /// Starts `words`, the first of which is looked up in PATH. What cannot be started is told on standard
    /// error, and `ended` is called with 127.
    StatusCommand(const std::vector<std::string> &words, Listener listener);
    ~StatusCommand();
    StatusCommand(const StatusCommand &) = delete;
    StatusCommand &operator=(const StatusCommand &) = delete;

    /// Passes a click on a block on, where the program wants to be told. One that is slow to read them loses
    /// some.
    void tellClick(const std::string &click);

private:
    void start(const std::vector<std::string> &words);
    void read();
    void end(int waitStatus);

    Listener m_listener;
    StatusStream m_stream;
    GPid m_process = 0;
    int m_input = -1;
    int m_output = -1;
    bool m_wasToldOfClicks = false;
    EventSource m_outputWatch;
    guint m_processWatch = 0;
};

} // namespace glimmet
