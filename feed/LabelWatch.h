#pragma once

#include "feed/Formats.h"
#include "feed/Glib.h"

#include <functional>

namespace glimmet {

/// Follows the label of glimmet's item on one connection to the session bus, from whichever program has
/// glimmet's name there.
class LabelWatch {
public:
    /// Calls `heard` from the main loop with each label, and with none when nobody has the name.
    LabelWatch(GDBusConnection *connection, std::function<void(const FeedText &)> heard);
    ~LabelWatch();
    LabelWatch(const LabelWatch &) = delete;
    LabelWatch &operator=(const LabelWatch &) = delete;

private:
    void follow(const char *owner);
    void leave();
    void hear(const char *label);

    GDBusConnection *m_connection;
    std::function<void(const FeedText &)> m_heard;
    Owned<GCancellable> m_question; ///< for the label that is there already
    guint m_watch = 0;
    guint m_subscription = 0;
};

/// The label in what a property's `Get` answers, "(v)"; null where it is no text. Lives as long as `answer`.
const char *labelIn(GVariant *answer);

} // namespace glimmet
