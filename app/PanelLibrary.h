#pragma once

#include <QCoreApplication>
#include <QString>

namespace glimmet {

/// Where the module is that draws the panel and its companions.
inline QString panelLibraryPath()
{
    return QCoreApplication::applicationDirPath() + QStringLiteral("/../lib/glimmet/libglimmet_ui.so");
}

} // namespace glimmet
