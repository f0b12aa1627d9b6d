#pragma once

#include <QByteArray>

namespace glimmet {

/// `plain` as one gzip stream.
QByteArray gzipped(const QByteArray &plain);

} // namespace glimmet
