#pragma once

#include "platform/desktop/ShellExtension.h"

#include <QStringList>

namespace glimmet {

/// An extension of the shell in a test's hand.
class MemoryShellExtension final : public ShellExtension {
public:
    bool isOffered() const override { return offered; }
    void look(const Found &found) override { found(current); }
    void setEnabled(bool isEnabled, const Completion &completion) override
    {
        asked.append(QString::fromLatin1(isEnabled ? "enable" : "disable"));
        if (!failure)
            current.isEnabled = isEnabled;
        completion(failure);
    }

    bool offered = false;
    ShellExtensionState current{ false, true };
    std::optional<QString> failure; ///< of whatever is asked next
    QStringList asked; ///< "enable" and "disable", in order
};

} // namespace glimmet
