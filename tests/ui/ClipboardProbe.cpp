#include "tests/ui/ClipboardProbe.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

namespace glimmet {

namespace {

QClipboard::Mode modeOf(ClipboardProbe::Buffer buffer)
{
    return buffer == ClipboardProbe::Clipboard ? QClipboard::Clipboard : QClipboard::Selection;
}

} // namespace

void ClipboardProbe::set(const QString &text, Buffer buffer)
{
    QGuiApplication::clipboard()->setText(text, modeOf(buffer));
}

QString ClipboardProbe::text(Buffer buffer)
{
    return QGuiApplication::clipboard()->text(modeOf(buffer));
}

QString ClipboardProbe::hint(Buffer buffer)
{
    const QMimeData *data = QGuiApplication::clipboard()->mimeData(modeOf(buffer));
    return data == nullptr ? QString()
                           : QString::fromUtf8(data->data(QStringLiteral("x-kde-passwordManagerHint")));
}

} // namespace glimmet
