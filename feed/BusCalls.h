#pragma once

#include "feed/Formats.h"
#include "feed/Glib.h"

namespace glimmet {

inline constexpr auto asBusClient = GDBusConnectionFlags(
    G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT | G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);

/// Tells glimmet of a click, which opens its panel at the pointer or closes it, and does not wait for an
/// answer.
void askForPanel(GDBusConnection *connection);

/// What comes of one question to glimmet.
enum class Answer { Given, NotRunning, NoBus };

/// The same, over a connection of its own, and waits.
Answer openPanel();

/// Puts the text that is shown now into `text`.
Answer readText(FeedText &text);

} // namespace glimmet
