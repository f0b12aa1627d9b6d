#pragma once

#include <QString>

#include <functional>
#include <optional>

namespace glimmet {

/// Whether the program starts when the user logs in.
enum class LoginItemStatus {
    Enabled,
    NotRegistered, ///< it was never asked for, or taken back
    RequiresApproval, ///< the user disabled it in the desktop's own settings
    NotFound, ///< what would be started is gone, or cannot be told
};

/// The program among those that the desktop starts at login. Main thread.
class LoginItem {
public:
    /// Called on the main thread, once: nothing where it went well, else the reason in words.
    using Completion = std::function<void(const std::optional<QString> &failure)>;

    virtual ~LoginItem() = default;

    /// As it is now: read from the system at every call.
    virtual LoginItemStatus status() const = 0;
    /// Has the program of this path started at login from now on, also where the user had disabled it.
    virtual void registerItem(const Completion &completion) = 0;
    virtual void unregisterItem(const Completion &completion) = 0;
};

} // namespace glimmet
