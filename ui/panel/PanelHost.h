#pragma once

#include "platform/desktop/ShellExtension.h"
#include "ui/panel/PanelServices.h"

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <utility>

namespace glimmet {

/// What the panel knows and asks of the program around it.
class PanelHost : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The panel is handed its host.")
    Q_PROPERTY(QString version READ version CONSTANT)
    Q_PROPERTY(bool offersTopBar READ offersTopBar CONSTANT)
    Q_PROPERTY(bool isShownInTopBar READ isShownInTopBar NOTIFY topBarChanged)
    Q_PROPERTY(bool topBarWaitsForLogin READ topBarWaitsForLogin NOTIFY topBarChanged)

public:
    PanelHost(QString version, PanelServices services, QObject *parent = nullptr)
        : QObject(parent)
        , m_version(std::move(version))
        , m_services(std::move(services))
    {
    }

    /// The program's version; empty where it has none.
    QString version() const { return m_version; }

    /// Whether the program starts at login, as the system has it now.
    Q_INVOKABLE bool launchesAtLogin() const;
    /// Has the system start it at login, or no more. A failure is reported, and shows at the next look.
    Q_INVOKABLE void setLaunchesAtLogin(bool wanted);

    /// Whether the desktop's own shell can show the text in its top bar.
    bool offersTopBar() const;
    /// Whether it does, as of the last look or wish.
    bool isShownInTopBar() const { return m_topBar.isEnabled; }
    /// Whether the shell does as it is told only after the next login.
    bool topBarWaitsForLogin() const { return !m_topBar.isKnown; }
    /// Looks afresh.
    Q_INVOKABLE void lookAtTopBar();
    /// Has the shell show the text, or no more. A failure is reported, and shows at the next look.
    Q_INVOKABLE void setShownInTopBar(bool wanted);

signals:
    void topBarChanged();
    /// The user wants the panel closed.
    void closeRequested();
    /// The user wants the program to end.
    void quitRequested();
    /// The user wants to know whether there is an update.
    void updateCheckRequested();

private:
    QString m_version;
    PanelServices m_services;
    ShellExtensionState m_topBar{ false, true };
};

} // namespace glimmet
