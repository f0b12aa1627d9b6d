#pragma once

#include <QString>

namespace glimmet {

/// A key of 64 letters. Nowhere in this process is it written but where this made it.
QString markedKey();

/// How many copies of that key are in the memory that this process can write, in use or given back, as UTF-16
/// or as UTF-8. One whose first half is gone counts.
int copiesOfMarkedKey();

} // namespace glimmet
