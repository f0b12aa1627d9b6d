#include "tests/ui/UpdateScenes.h"

namespace glimmet {
namespace {

const QString installed = QStringLiteral("1.0");
const QString offered = QStringLiteral("1.1");

} // namespace

void UpdateScenes::showChecking()
{
    m_face.setState({ .phase = UpdatePhase::Checking, .isCancellable = true });
}

void UpdateScenes::showUpToDate()
{
    m_face.setState({ .phase = UpdatePhase::UpToDate, .installedVersion = installed });
}

void UpdateScenes::showFound(const QString &changes)
{
    m_face.setState({ UpdatePhase::Found, installed, offered, changes });
}

void UpdateScenes::showInstalling(int percentage, bool isCancellable)
{
    m_face.setState({ UpdatePhase::Installing, installed, offered, {},
        percentage < 0 ? std::nullopt : std::optional(percentage), isCancellable });
}

void UpdateScenes::showDone()
{
    m_face.setState({ UpdatePhase::Done, installed, offered });
}

void UpdateScenes::showFailed(const QString &words, const QString &details)
{
    m_face.setState(
        { .phase = UpdatePhase::Failed, .installedVersion = installed, .failure = { words, details } });
}

void UpdateScenes::showNotPackaged()
{
    m_face.setState({ .phase = UpdatePhase::NotPackaged });
}

} // namespace glimmet
