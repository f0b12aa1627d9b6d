#pragma once

#include "platform/desktop/ShellExtension.h"

#include <QByteArray>
#include <QObject>
#include <QStringList>

namespace glimmet {

class SessionBus;

/// A list of texts as GNOME's settings tool writes and reads it; none where it is something else.
std::optional<QStringList> listOfGnome(const QByteArray &text);
QString gnomeText(const QStringList &list);

/// An extension of GNOME Shell. The shell is asked and told over the bus; what it does not know yet is
/// written to its settings, which it reads at the next login.
class GnomeExtension final : public QObject, public ShellExtension {
    Q_OBJECT

public:
    /// `uuid` is the extension's name. `bus` outlives it.
    GnomeExtension(const SessionBus &bus, QString uuid, QObject *parent = nullptr);

    bool isOffered() const override;
    void look(const Found &found) override;
    void setEnabled(bool isEnabled, const Completion &completion) override;

private:
    /// The settings in question: what the user has enabled, and what was disabled beside that.
    struct Lists {
        QStringList enabled;
        QStringList disabled;
    };
    using ListsRead = std::function<void(const std::optional<Lists> &lists)>;
    using ToolEnded = std::function<void(bool isWell, const QByteArray &output)>;

    void readLists(const ListsRead &read);
    void writeLists(const Lists &lists, const Completion &completion);
    void enableInSettings(bool isEnabled, const Completion &completion);
    void runTool(const QStringList &arguments, const ToolEnded &ended);

    const SessionBus &m_bus;
    const QString m_uuid;
};

} // namespace glimmet
