#pragma once

#include <QObject>
#include <QString>

#include <optional>

namespace glimmet {

namespace UpdatePhases {
Q_NAMESPACE
/// Where the user's own looking for updates is.
enum class UpdatePhase {
    Idle, ///< nothing to show
    Checking,
    UpToDate,
    Found,
    Installing,
    Done, ///< the newer version is installed, and runs from the next start on
    Failed,
    NotPackaged, ///< no package installed the program
};
Q_ENUM_NS(UpdatePhase)
} // namespace UpdatePhases

using UpdatePhases::UpdatePhase;

/// What went wrong, for the user.
struct UpdateFailure {
    QString words; ///< a sentence or two
    QString details; ///< the service's own words; may be empty

    friend bool operator==(const UpdateFailure &, const UpdateFailure &) = default;
};

/// Everything that there is to show.
struct UpdateState {
    UpdatePhase phase = UpdatePhase::Idle;
    QString installedVersion{}; ///< empty where it is not known
    QString newVersion{}; ///< empty where there is none
    QString changes{}; ///< what is new in it; often empty
    std::optional<int> percentage{}; ///< while installing, where the service can tell
    bool isCancellable = false;
    UpdateFailure failure{};

    friend bool operator==(const UpdateState &, const UpdateState &) = default;
};

} // namespace glimmet
