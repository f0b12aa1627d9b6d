#pragma once

#include <QString>

#include <functional>
#include <optional>

namespace glimmet {

/// How an extension of the desktop's shell stands.
struct ShellExtensionState {
    bool isEnabled = false;
    /// Whether the shell knows of it already; else it is enabled or disabled from the next login on.
    bool isKnown = false;

    friend bool operator==(const ShellExtensionState &, const ShellExtensionState &) = default;
};

/// The extension by which the desktop's shell shows the text in its top bar. Main thread.
class ShellExtension {
public:
    using Found = std::function<void(const ShellExtensionState &state)>;
    /// Called on the main thread, once: nothing where it went well, else the reason in words.
    using Completion = std::function<void(const std::optional<QString> &failure)>;

    virtual ~ShellExtension() = default;

    /// Whether the desktop has a shell that could use it, and it is installed.
    virtual bool isOffered() const = 0;
    /// Looks afresh, and calls `found` once.
    virtual void look(const Found &found) = 0;
    virtual void setEnabled(bool isEnabled, const Completion &completion) = 0;
};

} // namespace glimmet
