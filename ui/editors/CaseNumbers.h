#pragma once

#include "platform/RawValue.h"

#include <QList>

namespace glimmet {

/// The cases of an enumeration in display order, as the numbers that QML takes them for.
template <typename Enum> QList<int> caseNumbers()
{
    QList<int> numbers;
    for (const auto &[candidate, text] : rawValues<Enum>)
        numbers.append(static_cast<int>(candidate));
    return numbers;
}

} // namespace glimmet
