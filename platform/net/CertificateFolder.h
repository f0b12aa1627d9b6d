#pragma once

#include <QByteArray>

namespace glimmet {

/// Whether OpenSSL can find certificates in the folder at `path`: by names that it makes of whom they are
/// for, eight hexadecimal digits and a number (openssl-rehash(1)). Not so where the system keeps all in one
/// file.
bool isCertificateFolder(const QByteArray &path);

} // namespace glimmet
