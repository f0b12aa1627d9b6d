#pragma once

#include "platform/updates/PackageKit.h"
#include "platform/updates/UpdateState.h"

namespace glimmet {

/// What a failure of the package manager's means, in a sentence or two for the user.
UpdateFailure inWords(const PackageKitFailure &failure);
/// The failure of an installation that reported success and installed nothing newer.
UpdateFailure withoutEffect();

/// The sentence for one of PackageKit's error numbers; one that says little for a number without its own.
QString wordsForErrorCode(uint code);

} // namespace glimmet
