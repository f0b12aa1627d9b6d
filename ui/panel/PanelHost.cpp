#include "ui/panel/PanelHost.h"

#include "platform/desktop/LoginItem.h"

#include <QPointer>

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

bool PanelHost::offersTopBar() const
{
    return m_services.topBar != nullptr && m_services.topBar->isOffered();
}

void PanelHost::lookAtTopBar()
{
    m_services.topBar->look([host = QPointer(this)](const ShellExtensionState &state) {
        if (!host || state == host->m_topBar)
            return;
        host->m_topBar = state;
        emit host->topBarChanged();
    });
}

void PanelHost::setShownInTopBar(bool wanted)
{
    m_topBar.isEnabled = wanted;
    emit topBarChanged();
    m_services.topBar->setEnabled(
        wanted, [report = m_services.report](const std::optional<QString> &failure) {
            if (failure)
                report(QStringLiteral("Top bar error: ") + *failure);
        });
}

} // namespace glimmet
