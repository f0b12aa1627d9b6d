#pragma once

namespace glimmet {

/// Has the panel's own answers given to assistive programs where the toolkit's do not do. Before the first
/// panel; again is no harm.
void installPanelAccessibility();

} // namespace glimmet
