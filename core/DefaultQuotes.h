#pragma once

#include <QStringList>

namespace glimmet {

/// The quotes that rotate while the user has none of their own.
const QStringList &defaultQuotes();

} // namespace glimmet
