#pragma once

#include <memory>

namespace glimmet {

/// Lets go of an object that may be in the middle of a signal of its own: nothing more is heard of it, and it
/// is destroyed once the event loop goes on.
template <typename Object> void endLater(std::unique_ptr<Object> &object)
{
    if (Object *ended = object.release()) {
        ended->disconnect();
        ended->deleteLater();
    }
}

} // namespace glimmet
