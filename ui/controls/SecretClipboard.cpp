#include "ui/controls/SecretClipboard.h"

#include <QGuiApplication>
#include <QMimeData>

#include <typeinfo>

namespace glimmet {

namespace {

QString hintFormat()
{
    return QStringLiteral("x-kde-passwordManagerHint");
}

/// The text that this program has put there and not marked yet. What comes from elsewhere is of a class of
/// the platform's own, and is not looked into.
QString unmarkedText(const QMimeData *data)
{
    if (data == nullptr || typeid(*data) != typeid(QMimeData) || data->hasFormat(hintFormat()))
        return {};
    return data->text();
}

} // namespace

SecretClipboard::SecretClipboard(QObject *parent)
    : QObject(parent)
{
    connect(QGuiApplication::clipboard(), &QClipboard::changed, this, &SecretClipboard::mark);
}

void SecretClipboard::setSecret(const QString &secret)
{
    if (m_secret == secret)
        return;
    m_secret = secret;
    emit secretChanged();
}

void SecretClipboard::mark(QClipboard::Mode mode)
{
    QClipboard &clipboard = *QGuiApplication::clipboard();
    const QString text = unmarkedText(clipboard.mimeData(mode));
    if (text.isEmpty() || !m_secret.contains(text))
        return;
    // No program has seen it without: they are answered by the event loop.
    auto *marked = new QMimeData;
    marked->setText(text);
    marked->setData(hintFormat(), QByteArrayLiteral("secret"));
    clipboard.setMimeData(marked, mode);
}

} // namespace glimmet
