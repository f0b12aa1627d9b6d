#include "ui/UpdateWindow.h"

#include "platform/updates/UpdaterController.h"
#include "ui/Appearance.h"

#include <QQmlEngine>
#include <QQuickItem>

namespace glimmet {

UpdateWindow::UpdateWindow(UpdaterController &updater, const DesktopLook &look)
    : m_appearance(*new Appearance(m_view.engine()))
{
    m_view.setTitle(QStringLiteral("glimmet – Software Update"));
    m_view.setFlags(Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint);
    setLook(look);
    connectUpdater(updater);
    m_view.setInitialProperties({ { QStringLiteral("face"), QVariant::fromValue(&m_face) } });
    m_view.setResizeMode(QQuickView::SizeRootObjectToView);
    m_view.setSource(QUrl(QStringLiteral("qrc:/qt-project.org/imports/Glimmet/UpdateWindow.qml")));
    QObject::connect(m_view.rootObject(), &QQuickItem::implicitHeightChanged, &m_view, [this] { fit(); });
    fit();
}

void UpdateWindow::connectUpdater(UpdaterController &updater)
{
    const auto showState = [this, &updater] { m_face.setState(updater.state()); };
    // Queued, since the owner may destroy the window at an answer, and QML is still running then.
    const auto on = [&](void (UpdateFace::*answer)(), void (UpdaterController::*operation)()) {
        QObject::connect(&m_face, answer, &updater, operation, Qt::QueuedConnection);
    };
    QObject::connect(&updater, &UpdaterController::stateChanged, &m_face, showState);
    on(&UpdateFace::installChosen, &UpdaterController::install);
    on(&UpdateFace::restartChosen, &UpdaterController::restart);
    on(&UpdateFace::cancelChosen, &UpdaterController::cancel);
    QObject::connect(
        &m_face, &UpdateFace::closeChosen, &m_view, [this] { m_view.close(); }, Qt::QueuedConnection);
    showState();
}

void UpdateWindow::setLook(const DesktopLook &look)
{
    m_appearance.setLook(look);
    m_view.setColor(panelColors(look.scheme).background);
}

void UpdateWindow::fit()
{
    const QQuickItem *content = m_view.rootObject();
    const QSize size = QSizeF(content->implicitWidth(), content->implicitHeight()).toSize();
    m_view.setMinimumSize(size);
    m_view.setMaximumSize(size);
    m_view.resize(size);
}

} // namespace glimmet
