#pragma once

#include "platform/net/Json.h"

#include <QList>

namespace glimmet {

/// What `read` makes of a JSON text, which must be one.
template <typename Read> auto inJson(const QByteArray &text, const Read &read)
{
    const auto document = JsonDocument::read(text);
    if (!document)
        qFatal("the test's text is no JSON");
    return read(document->root());
}

/// Values of every JSON type.
inline const QList<QByteArray> jsonValues{ "null", "true", "false", "0", "12", "-12", "12.0", "12.9", "1e2",
    "\"\"", "\"text\"", "\"12\"", "[]", "[1]", "[{}]", "{}", "{\"a\":1}" };

/// All of them but these.
inline QList<QByteArray> jsonValuesBut(const QList<QByteArray> &left)
{
    QList<QByteArray> values = jsonValues;
    for (const QByteArray &value : left)
        if (!values.removeOne(value))
            qFatal("the test leaves out a value that is none");
    return values;
}

} // namespace glimmet
