#include "ui/updates/UpdateWindowModel.h"

namespace glimmet {
namespace {

const QString program = QStringLiteral("glimmet");
const QString ok = QStringLiteral("OK");
const QString cancel = QStringLiteral("Cancel");
const QString later = QStringLiteral("Later");

/// "glimmet 1.1"; only the name of a version that is not known.
QString named(const QString &version)
{
    return version.isEmpty() ? program : program + u' ' + version;
}

UpdateWords checking()
{
    return { QStringLiteral("progress.indicator"), QStringLiteral("Checking for updates…"),
        QStringLiteral("Asking this computer's software sources."), {}, cancel };
}

UpdateWords upToDate(const UpdateState &state)
{
    return { QStringLiteral("checkmark.circle"), QStringLiteral("You're up to date"),
        named(state.installedVersion) + QStringLiteral(" is the newest version available."), ok };
}

UpdateWords found(const UpdateState &state)
{
    return { QStringLiteral("arrow.down.circle"), named(state.newVersion) + QStringLiteral(" is available"),
        QStringLiteral("You have %1. Would you like to install the newer version now?")
            .arg(state.installedVersion),
        QStringLiteral("Install"), later };
}

UpdateWords installing(const UpdateState &state)
{
    return { QStringLiteral("arrow.down.circle"),
        QStringLiteral("Installing %1…").arg(named(state.newVersion)),
        QStringLiteral("You can go on using glimmet meanwhile."), {}, cancel };
}

UpdateWords done(const UpdateState &state)
{
    return { QStringLiteral("checkmark.circle"), named(state.newVersion) + QStringLiteral(" is installed"),
        QStringLiteral("Restart glimmet to use it."), QStringLiteral("Restart"), later };
}

UpdateWords failed(const UpdateState &state)
{
    const bool wasInstalling = !state.newVersion.isEmpty();
    return { QStringLiteral("exclamationmark.triangle"),
        wasInstalling ? named(state.newVersion) + QStringLiteral(" was not installed")
                      : QStringLiteral("Could not check for updates"),
        state.failure.words, ok };
}

UpdateWords notPackaged()
{
    return { QStringLiteral("questionmark.circle"), QStringLiteral("This copy cannot be updated from here"),
        QStringLiteral("Updates come with the package that installs glimmet, and no package installed this "
                       "copy. Get newer versions where you got this one, or install the package."),
        ok };
}

} // namespace

UpdateWords updateWords(const UpdateState &state)
{
    switch (state.phase) {
    case UpdatePhase::Idle:
        break;
    case UpdatePhase::Checking:
        return checking();
    case UpdatePhase::UpToDate:
        return upToDate(state);
    case UpdatePhase::Found:
        return found(state);
    case UpdatePhase::Installing:
        return installing(state);
    case UpdatePhase::Done:
        return done(state);
    case UpdatePhase::Failed:
        return failed(state);
    case UpdatePhase::NotPackaged:
        return notPackaged();
    }
    return {};
}

UpdateWindowModel::UpdateWindowModel(QObject *parent)
    : QObject(parent)
{
}

void UpdateWindowModel::setState(const UpdateState &state)
{
    m_state = state;
    m_words = updateWords(state);
    emit changed();
}

QString UpdateWindowModel::changes() const
{
    return m_state.phase == UpdatePhase::Found ? m_state.changes : QString();
}

bool UpdateWindowModel::isWaiting() const
{
    return m_state.phase == UpdatePhase::Checking || m_state.phase == UpdatePhase::Installing;
}

qreal UpdateWindowModel::progress() const
{
    return m_state.percentage ? *m_state.percentage / 100.0 : -1;
}

bool UpdateWindowModel::isOtherEnabled() const
{
    return m_state.phase != UpdatePhase::Installing || m_state.isCancellable;
}

void UpdateWindowModel::chooseDefault()
{
    if (m_state.phase == UpdatePhase::Found)
        emit installChosen();
    else if (m_state.phase == UpdatePhase::Done)
        emit restartChosen();
    else if (!m_words.defaultButton.isEmpty())
        emit closeChosen();
}

void UpdateWindowModel::chooseOther()
{
    if (isWaiting())
        emit cancelChosen();
    else if (!m_words.otherButton.isEmpty())
        emit closeChosen();
}

void UpdateWindowModel::escape()
{
    if (isWaiting() && isOtherEnabled())
        emit cancelChosen();
    else
        emit closeChosen();
}

} // namespace glimmet
