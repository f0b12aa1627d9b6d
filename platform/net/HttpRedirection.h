#pragma once

#include <QByteArray>
#include <QUrl>

#include <optional>

namespace glimmet {

/// Where an answer with that status and Location sends a client that asked for `asked`. Only what leads to
/// the same https origin (scheme, host and port) counts: the headers of a request hold keys, which are for
/// no other program. Nothing for every other answer, also where the Location could not be sent as it is.
std::optional<QUrl> redirection(const QUrl &asked, int status, const QByteArray &location);

} // namespace glimmet
