#include "platform/ConfigFolder.h"

#include <QDir>

namespace glimmet {

QString configFolder()
{
    const QString chosen = qEnvironmentVariable("XDG_CONFIG_HOME");
    return QDir::isAbsolutePath(chosen) ? QDir::cleanPath(chosen)
                                        : QDir::homePath() + QStringLiteral("/.config");
}

} // namespace glimmet
