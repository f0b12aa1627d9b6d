#include "platform/StoredJson.h"

namespace glimmet {

QJsonDocument documentOf(QByteArray json)
{
    constexpr char byteOrderMark[] = "\xEF\xBB\xBF";
    if (json.startsWith(byteOrderMark)) // That of the file, which is no part of any text.
        json.remove(0, qsizetype(sizeof byteOrderMark) - 1);
    // Elsewhere only texts can hold one, and escaped it stays.
    return QJsonDocument::fromJson(json.replace(byteOrderMark, "\\uFEFF"));
}

} // namespace glimmet
