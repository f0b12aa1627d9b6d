#pragma once

#include "feed/Glib.h"

#include <functional>
#include <optional>
#include <string>

namespace glimmet {

/// Lines for a reader that may be slow and may go. What it has no room for gives way to what is newer, so
/// that nothing old is waiting for it.
class LineOutput {
public:
    /// Why no line can be written any more: an errno, EPIPE where nobody reads.
    using Ended = std::function<void(int reason)>;

    /// Calls `ended` from the main loop, or from `show`, also where no line is shown at that time. The
    /// descriptor outlives it.
    LineOutput(int descriptor, Ended ended);

    /// Writes the line and a line break at once, or as soon as there is room.
    void show(const std::string &line);

private:
    void write();

    int m_descriptor;
    Ended m_ended;
    std::string m_begun; ///< what is left of a line of which a part was written
    std::optional<std::string> m_next;
    EventSource m_loss;
    EventSource m_room;
};

} // namespace glimmet
