#include "tests/support/Printing.h"

#include <ostream>

void PrintTo(const QString &text, std::ostream *stream)
{
    *stream << '"' << text.toStdString() << '"';
}

void PrintTo(const QByteArray &bytes, std::ostream *stream)
{
    *stream << '"' << bytes.toPercentEncoding(" \"{}[]:,").toStdString() << '"';
}
