#pragma once

#include "tests/support/HttpsServer.h"

#include <QSslConfiguration>

namespace glimmet {

/// How a server with that certificate encrypts. The process ends where the build made no certificates.
QSslConfiguration encryptionWith(HttpsServer::Certificate certificate);

/// The certificate (PEM) of the authority that vouches for all but one of them.
QByteArray testAuthority();

} // namespace glimmet
