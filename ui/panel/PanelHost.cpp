#include "ui/panel/PanelHost.h"

#include "platform/desktop/LoginItem.h"

namespace glimmet {

bool PanelHost::launchesAtLogin() const
{
    return m_services.loginItem.status() == LoginItemStatus::Enabled;
}

void PanelHost::setLaunchesAtLogin(bool wanted)
{
    // The answer may come when the panel is gone.
    const auto finish = [report = m_services.report](const std::optional<QString> &failure) {
        if (failure)
            report(QStringLiteral("Launch error: ") + *failure);
    };
    if (wanted)
        m_services.loginItem.registerItem(finish);
    else
        m_services.loginItem.unregisterItem(finish);
}

} // namespace glimmet
