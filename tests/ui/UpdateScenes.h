#pragma once

#include "platform/updates/UpdateState.h"
#include "ui/updates/UpdateWindowModel.h"

#include <QObject>

namespace glimmet {

/// Puts the window of software updates into every state, for QML tests.
class UpdateScenes : public QObject {
    Q_OBJECT
    Q_PROPERTY(glimmet::UpdateWindowModel *model READ model CONSTANT)

public:
    UpdateWindowModel *model() { return &m_model; }

    Q_INVOKABLE void showChecking();
    Q_INVOKABLE void showUpToDate();
    Q_INVOKABLE void showFound(const QString &changes);
    /// `percentage`: below zero where it is not known.
    Q_INVOKABLE void showInstalling(int percentage, bool isCancellable);
    Q_INVOKABLE void showDone();
    Q_INVOKABLE void showFailed(const QString &words, const QString &details);
    Q_INVOKABLE void showNotPackaged();

private:
    UpdateWindowModel m_model;
};

} // namespace glimmet
