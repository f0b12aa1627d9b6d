#include "platform/PreferencesFile.h"

#include "platform/StoredJson.h"

#include <QFile>
#include <QFileInfo>

namespace glimmet {

PreferencesFile readPreferencesFile(const QString &path)
{
    using State = PreferencesFile::State;
    const QFileInfo info(path);
    if (!info.exists()) // Nor is there anything behind a link whose target is still to be written.
        return {};
    QFile file(path);
    // Anything but a regular file is not opened: a pipe would never end.
    if (!info.isFile())
        return { State::unreadable, {} };
    if (!file.open(QIODevice::ReadOnly))
        return { file.error() == QFile::ResourceError ? State::unavailable : State::unreadable, {} };
    const QByteArray content = file.readAll();
    if (file.error() != QFile::NoError)
        return { State::unavailable, {} };
    const QJsonDocument document = documentOf(content);
    if (!document.isObject())
        return { State::unreadable, {} };
    return { State::readable, document.object() };
}

} // namespace glimmet
