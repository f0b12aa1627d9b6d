#include "app/PanelLibrary.h"

#include "ui/panel/PanelModule.h"

#include <QCoreApplication>
#include <QJsonObject>

#include <optional>

namespace glimmet {
namespace {

QString path()
{
    return QCoreApplication::applicationDirPath() + QStringLiteral("/../lib/glimmet/libglimmet_ui.so");
}

/// The version that the file says it is of, which is read without running any of it; none: it is no such
/// file.
std::optional<QString> versionOf(const QPluginLoader &loader)
{
    const QJsonValue own = loader.metaData().value(QStringLiteral("MetaData"));
    if (!own.isObject())
        return std::nullopt;
    return own.toObject().value(QStringLiteral("version")).toString();
}

} // namespace

PanelModule *PanelLibrary::module()
{
    m_isReplaced = false;
    m_error.clear();
    // Not sooner: a loader knows the file as it was when the loader was made.
    if (!m_loader)
        m_loader = std::make_unique<QPluginLoader>(path());
    return load();
}

PanelModule *PanelLibrary::load()
{
    const QString running = QCoreApplication::applicationVersion();
    const std::optional<QString> version = versionOf(*m_loader);
    m_isReplaced = version && *version != running;
    if (m_isReplaced)
        return refuse(QStringLiteral("glimmet %1 is installed, but %2 is running").arg(*version, running));
    auto *module = qobject_cast<PanelModule *>(m_loader->instance());
    return module != nullptr ? module : refuse(m_loader->errorString());
}

PanelModule *PanelLibrary::refuse(const QString &reason)
{
    m_error = reason;
    m_loader.reset();
    return nullptr;
}

} // namespace glimmet
