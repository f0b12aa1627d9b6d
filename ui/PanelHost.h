#pragma once

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
    explicit PanelHost(QString version, QObject *parent = nullptr)
        : QObject(parent)
        , m_version(std::move(version))
    {
    }

    /// The program's version; empty where it has none.
    QString version() const { return m_version; }

signals:
    /// The user wants the panel closed.
    void closeRequested();
    /// The user wants the program to end.
    void quitRequested();

private:
    QString m_version;
};

} // namespace glimmet
