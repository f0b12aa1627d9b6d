#pragma once

#include <QPluginLoader>
#include <QString>

#include <memory>

namespace glimmet {

class PanelModule;

/// The module that draws the panel and its companions, as it lies beside the program when it is first asked
/// for. Once loaded it stays, also when the file is replaced. Main thread.
class PanelLibrary {
public:
    /// Null where it cannot be loaded, or is of another version than the running program, which an update has
    /// replaced meanwhile: the two do not fit together. The next call looks again.
    PanelModule *module();
    /// Why the last call returned none, in words.
    QString error() const { return m_error; }
    /// Whether that was the other version: the program has to start again to have a panel.
    bool isReplaced() const { return m_isReplaced; }

private:
    PanelModule *load();
    PanelModule *refuse(const QString &reason);

    std::unique_ptr<QPluginLoader> m_loader;
    QString m_error;
    bool m_isReplaced = false;
};

} // namespace glimmet
