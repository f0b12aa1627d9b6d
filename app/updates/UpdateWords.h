#pragma once

#include "platform/updates/PackageKit.h"
#include "platform/updates/UpdateState.h"

namespace glimmet {

/// What a failure of the package manager's means, in a sentence or two for the user; one that says little for
/// an error number without words of its own.
UpdateFailure inWords(const PackageKitFailure &failure);
/// The failure of an installation that reported success and installed nothing newer.
UpdateFailure withoutEffect();

} // namespace glimmet
