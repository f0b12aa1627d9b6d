#pragma once

#include <QByteArray>
#include <QString>

#include <iosfwd>

// GoogleTest finds these by the argument's namespace, which for Qt's types is the global one.
void PrintTo(const QString &text, std::ostream *stream);
void PrintTo(const QByteArray &bytes, std::ostream *stream);
