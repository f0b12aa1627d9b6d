#pragma once

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

signals:
    /// The user wants the panel closed.
    void closeRequested();
    /// The user wants the program to end.
    void quitRequested();
    /// The user wants to know whether there is an update.
    void updateCheckRequested();

private:
    QString m_version;
    PanelServices m_services;
};

} // namespace glimmet
