#include "ui/updates/UpdateWindow.h"

#include "ui/controls/WholeFrames.h"
#include "ui/panel/Appearance.h"

#include <QQmlEngine>
#include <QQuickItem>

namespace glimmet {

UpdateWindow::UpdateWindow(const UpdateState &state, const UpdateAnswers &answers, const DesktopLook &look)
    : m_appearance(*new Appearance(m_view.engine()))
{
    m_view.setTitle(QStringLiteral("glimmet – Software Update"));
    m_view.setFlags(Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint);
    setLook(look);
    connectAnswers(answers);
    setState(state);
    m_view.setInitialProperties({ { QStringLiteral("updater"), QVariant::fromValue(&m_model) } });
    m_view.setResizeMode(QQuickView::SizeRootObjectToView);
    m_view.setSource(QUrl(QStringLiteral("qrc:/qt-project.org/imports/Glimmet/UpdateWindow.qml")));
    QObject::connect(m_view.rootObject(), &QQuickItem::implicitHeightChanged, &m_view, [this] { fit(); });
    fit();
    new WholeFrames(m_view);
}

void UpdateWindow::connectAnswers(const UpdateAnswers &answers)
{
    QObject::connect(&m_model, &UpdateWindowModel::installChosen, answers.install);
    QObject::connect(&m_model, &UpdateWindowModel::restartChosen, answers.restart);
    QObject::connect(&m_model, &UpdateWindowModel::cancelChosen, answers.cancel);
    // Queued, since the owner may destroy a window that has closed, and QML is still running here.
    QObject::connect(
        &m_model, &UpdateWindowModel::closeChosen, &m_view, [this] { m_view.close(); }, Qt::QueuedConnection);
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
