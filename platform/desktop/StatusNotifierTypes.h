#pragma once

#include <QByteArray>
#include <QDBusArgument>
#include <QList>
#include <QString>

class QImage;

namespace glimmet {

/// The protocol's picture: ARGB, 32 bits, network byte order. Signature (iiay).
struct NotifierPixmap {
    int width = 0;
    int height = 0;
    QByteArray bytes;
};

/// The protocol's tooltip. Signature (sa(iiay)ss).
struct NotifierToolTip {
    QString iconName;
    QList<NotifierPixmap> iconPixmaps;
    QString title;
    QString text;
};

QDBusArgument &operator<<(QDBusArgument &argument, const NotifierPixmap &pixmap);
const QDBusArgument &operator>>(const QDBusArgument &argument, NotifierPixmap &pixmap);
QDBusArgument &operator<<(QDBusArgument &argument, const NotifierToolTip &toolTip);
const QDBusArgument &operator>>(const QDBusArgument &argument, NotifierToolTip &toolTip);

/// Makes the types known to the bus; more than once does no harm.
void registerNotifierTypes();

/// Any picture as the protocol has it.
NotifierPixmap notifierPixmap(const QImage &image);
/// A picture of `size` by `size` pixels with nothing in it.
NotifierPixmap emptyPixmap(int size);

} // namespace glimmet

Q_DECLARE_METATYPE(glimmet::NotifierPixmap)
Q_DECLARE_METATYPE(glimmet::NotifierToolTip)
