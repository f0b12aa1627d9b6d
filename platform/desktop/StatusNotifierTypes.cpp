#include "platform/desktop/StatusNotifierTypes.h"

#include <QDBusMetaType>
#include <QImage>
#include <QPainter>
#include <QtEndian>

namespace glimmet {
namespace {

NotifierPixmap toPixmap(const QImage &image)
{
    const QImage argb = image.convertToFormat(QImage::Format_ARGB32);
    NotifierPixmap pixmap{ argb.width(), argb.height(), QByteArray(argb.sizeInBytes(), Qt::Uninitialized) };
    qToBigEndian<quint32>(argb.constBits(), argb.sizeInBytes() / 4, pixmap.bytes.data());
    return pixmap;
}

} // namespace

QDBusArgument &operator<<(QDBusArgument &argument, const NotifierPixmap &pixmap)
{
    argument.beginStructure();
    argument << pixmap.width << pixmap.height << pixmap.bytes;
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, NotifierPixmap &pixmap)
{
    argument.beginStructure();
    argument >> pixmap.width >> pixmap.height >> pixmap.bytes;
    argument.endStructure();
    return argument;
}

QDBusArgument &operator<<(QDBusArgument &argument, const NotifierToolTip &toolTip)
{
    argument.beginStructure();
    argument << toolTip.iconName << toolTip.iconPixmaps << toolTip.title << toolTip.text;
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, NotifierToolTip &toolTip)
{
    argument.beginStructure();
    argument >> toolTip.iconName >> toolTip.iconPixmaps >> toolTip.title >> toolTip.text;
    argument.endStructure();
    return argument;
}

void registerNotifierTypes()
{
    qDBusRegisterMetaType<NotifierPixmap>();
    qDBusRegisterMetaType<QList<NotifierPixmap>>();
    qDBusRegisterMetaType<NotifierToolTip>();
}

NotifierPixmap emptyPixmap(int size)
{
    return { size, size, QByteArray(qsizetype(size) * size * 4, '\0') };
}

NotifierPixmap markPixmap(int size)
{
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0xff, 0xa6, 0x3d));
    const double margin = size / 5.0;
    painter.drawEllipse(QRectF(margin, margin, size - 2 * margin, size - 2 * margin));
    painter.end();
    return toPixmap(image);
}

} // namespace glimmet
