#pragma once

#include <type_traits>

namespace glimmet {

/// Gives a published property its value and tells of it by `changed`, but only where that is a change. What
/// else an assignment causes belongs behind it, and happens every time: an assignment is a request.
template <typename Object, typename Value>
void publish(
    Object &object, Value &member, const std::type_identity_t<Value> &value, void (Object::*changed)())
{
    if (member == value)
        return;
    member = value;
    (object.*changed)();
}

} // namespace glimmet
