#pragma once

#include <QString>

#include <functional>

namespace glimmet {

class LoginItem;
class ShellExtension;

/// What the panel asks of the program around it. All of it outlives every panel.
struct PanelServices {
    LoginItem &loginItem;
    std::function<void()> checkForUpdates;
    std::function<void(const QString &line)> report; ///< tells a developer who looks for faults
    ShellExtension *topBar = nullptr; ///< none where the desktop has none
};

} // namespace glimmet
