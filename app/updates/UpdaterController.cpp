#include "app/updates/UpdaterController.h"

#include "app/updates/UpdateWords.h"
#include "platform/EndLater.h"
#include "platform/updates/UpdateCheck.h"
#include "platform/updates/UpdateInstallation.h"

#include <utility>

namespace glimmet {
namespace {

using Verdict = UpdateFinding::Verdict;

UpdatePhase phaseOf(Verdict verdict)
{
    switch (verdict) {
    case Verdict::UpToDate:
        return UpdatePhase::UpToDate;
    case Verdict::Found:
        return UpdatePhase::Found;
    case Verdict::NotPackaged:
        return UpdatePhase::NotPackaged;
    case Verdict::Failed:
        break;
    }
    return UpdatePhase::Failed;
}

UpdateState stateOf(const UpdateFinding &finding)
{
    return { phaseOf(finding.verdict), finding.installed.version, finding.update.version, finding.changes, {},
        false, finding.failure ? inWords(*finding.failure) : UpdateFailure{} };
}

/// Whether a state has to be seen to its end before a new check makes sense.
bool isPending(UpdatePhase phase)
{
    return phase == UpdatePhase::Checking || phase == UpdatePhase::Found || phase == UpdatePhase::Installing
        || phase == UpdatePhase::Done;
}

} // namespace

UpdaterController::UpdaterController(const UpdaterWorld &world, QObject *parent)
    : QObject(parent)
    , m_sessionBus(world.sessionBus)
    , m_program(world.program)
    , m_client(world.systemBus, world.timers, world.patience)
    , m_schedule(world.timers, world.clock, [this] { checkByItself(); })
{
    connect(&m_client, &PackageKitClient::progressed, this, &UpdaterController::handleProgress);
    connect(
        &m_notification, &UpdateNotification::installChosen, this, &UpdaterController::handleNotification);
}

UpdaterController::~UpdaterController() = default;

void UpdaterController::start()
{
    m_schedule.start();
}

void UpdaterController::checkForUpdates()
{
    if (!isPending(m_state.phase))
        startCheck(Asking::User);
    showWindow();
}

void UpdaterController::checkByItself()
{
    if (!m_check && !isPending(m_state.phase))
        startCheck(Asking::Nobody);
    else
        m_schedule.tryAgain();
}

void UpdaterController::startCheck(Asking asking)
{
    // The user's check takes the place of the program's own, which may ask for no password and so do less.
    if (m_check && asking == Asking::User)
        m_schedule.tryAgain();
    m_check.reset();
    m_check = std::make_unique<UpdateCheck>(m_client, m_program, asking);
    const bool isForUser = asking == Asking::User;
    connect(m_check.get(), &UpdateCheck::finished, this,
        isForUser ? &UpdaterController::handleFinding : &UpdaterController::handleOwnFinding);
    if (isForUser) {
        m_notification.close();
        setState({ .phase = UpdatePhase::Checking, .isCancellable = true });
    }
    m_check->start();
}

void UpdaterController::handleFinding(const UpdateFinding &finding)
{
    m_finding = finding;
    endWork();
    setState(stateOf(m_finding));
}

void UpdaterController::handleOwnFinding(const UpdateFinding &finding)
{
    m_finding = finding;
    endWork();
    if (m_finding.verdict == Verdict::Failed)
        m_schedule.tryAgain();
    if (m_finding.verdict == Verdict::Found)
        m_notification.show(m_sessionBus, m_finding.installed.version, m_finding.update.version);
}

void UpdaterController::handleNotification()
{
    if (isPending(m_state.phase))
        return showWindow();
    if (m_finding.verdict != Verdict::Found)
        return checkForUpdates();
    setState(stateOf(m_finding));
    install();
    showWindow();
}

void UpdaterController::install()
{
    if (m_state.phase != UpdatePhase::Found)
        return;
    m_check.reset();
    m_notification.close();
    m_isDismissed = false;
    m_installation = std::make_unique<UpdateInstallation>(m_client, m_finding.installed, m_finding.update);
    connect(
        m_installation.get(), &UpdateInstallation::finished, this, &UpdaterController::handleInstallation);
    UpdateState installing = m_state;
    installing.phase = UpdatePhase::Installing;
    installing.isCancellable = true;
    setState(installing);
    m_installation->start();
}

void UpdaterController::handleProgress(const TransactionProgress &progress)
{
    if (m_state.phase != UpdatePhase::Installing)
        return;
    UpdateState further = m_state;
    further.percentage = progress.percentage;
    further.isCancellable = progress.isCancellable;
    setState(further);
}

void UpdaterController::handleInstallation(const InstallationResult &result)
{
    endWork();
    UpdateState after = stateOf(m_finding);
    if (result.installed) {
        after.phase = UpdatePhase::Done;
        after.newVersion = result.installed->version;
    } else if (!result.wasCancelled) {
        after.phase = UpdatePhase::Failed;
        after.failure = result.failure ? inWords(*result.failure) : withoutEffect();
    } else if (m_isDismissed) {
        after = {};
    }
    setState(after);
    if (m_isDismissed && after.phase != UpdatePhase::Idle)
        showWindow();
}

void UpdaterController::cancel()
{
    if (m_installation)
        return m_installation->cancel();
    if (m_state.phase != UpdatePhase::Checking)
        return;
    m_check.reset();
    setState({});
}

void UpdaterController::dismiss()
{
    if (m_installation)
        m_isDismissed = true;
    else if (m_state.phase == UpdatePhase::Checking)
        cancel();
    else
        setState({});
}

void UpdaterController::restart()
{
    if (m_state.phase == UpdatePhase::Done)
        emit restartRequested();
}

void UpdaterController::endWork()
{
    endLater(m_check);
    endLater(m_installation);
    m_client.abandon();
}

void UpdaterController::showWindow()
{
    m_isDismissed = false;
    emit windowWanted();
}

void UpdaterController::setState(const UpdateState &state)
{
    if (m_state == state)
        return;
    m_state = state;
    emit stateChanged();
}

} // namespace glimmet
