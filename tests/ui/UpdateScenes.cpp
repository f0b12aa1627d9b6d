#include "tests/ui/UpdateScenes.h"

namespace glimmet {
namespace {

const QString installed = QStringLiteral("1.0");
const QString offered = QStringLiteral("1.1");

} // namespace

void UpdateScenes::showChecking()
{
    m_model.setState({ .phase = UpdatePhase::Checking, .isCancellable = true });
}

void UpdateScenes::showUpToDate()
{
    m_model.setState({ .phase = UpdatePhase::UpToDate, .installedVersion = installed });
}

void UpdateScenes::showFound(const QString &changes)
{
    m_model.setState({ UpdatePhase::Found, installed, offered, changes });
}

void UpdateScenes::showInstalling(int percentage, bool isCancellable)
{
    m_model.setState({ UpdatePhase::Installing, installed, offered, {},
        percentage < 0 ? std::nullopt : std::optional(percentage), isCancellable });
}

void UpdateScenes::showDone()
{
    m_model.setState({ UpdatePhase::Done, installed, offered });
}

void UpdateScenes::showFailed(const QString &words, const QString &details)
{
    m_model.setState(
        { .phase = UpdatePhase::Failed, .installedVersion = installed, .failure = { words, details } });
}

void UpdateScenes::showNotPackaged()
{
    m_model.setState({ .phase = UpdatePhase::NotPackaged });
}

} // namespace glimmet
