#include "core/DefaultQuotes.h"

namespace glimmet {

const QStringList &defaultQuotes()
{
    static const QStringList quotes = {
        QStringLiteral("stay curious ✦"),
        QStringLiteral("build something real 🛠"),
        QStringLiteral("deep work > busy work"),
        QStringLiteral("one step at a time 🌱"),
        QStringLiteral("ship it 🚀"),
        QStringLiteral("embrace the process"),
        QStringLiteral("less noise, more signal"),
        QStringLiteral("make it count ⚡️"),
        QStringLiteral("slow is smooth"),
        QStringLiteral("focus is a superpower"),
    };
    return quotes;
}

} // namespace glimmet
