#pragma once

#include <QByteArray>

#include <optional>

namespace glimmet::I3Ipc {

/// i3's protocol for other programs, which is sway's too (https://i3wm.org/docs/ipc.html).
enum class Type : quint32 { Subscribe = 2, GetBarConfig = 6 };

QByteArray message(Type type, const QByteArray &payload);

/// The payload of the first message in `buffer`, which is taken out of it; none while that is not whole.
/// `buffer` is cleared where it cannot be such a message.
std::optional<QByteArray> takePayload(QByteArray &buffer);

/// What subscribes to the events of windows.
inline constexpr char windowEvents[] = R"(["window"])";

/// Whether it is the event that a window has got the keyboard.
bool isFocusEvent(const QByteArray &payload);

} // namespace glimmet::I3Ipc
