#pragma once

#include <QFont>
#include <QObject>
#include <QSizeF>
#include <QtQml/qqmlregistration.h>

namespace glimmet {

/// The size that an entry of a list will have, known by its text before the entry is built. Lengths are
/// logical pixels.
class EntryExtent : public QObject {
    Q_OBJECT
    QML_ELEMENT
    /// What the model calls the text.
    Q_PROPERTY(QString role MEMBER m_role NOTIFY changed REQUIRED)
    Q_PROPERTY(QFont font MEMBER m_font NOTIFY changed)
    /// Where the text breaks; 0: nowhere. An entry whose text breaks is as wide as its list.
    Q_PROPERTY(qreal wrapWidth MEMBER m_wrapWidth NOTIFY changed)
    /// What stands in the padding is never lower.
    Q_PROPERTY(qreal leastHeight MEMBER m_leastHeight NOTIFY changed)
    /// Around the text, both sides together.
    Q_PROPERTY(qreal horizontalPadding MEMBER m_horizontalPadding NOTIFY changed)
    Q_PROPERTY(qreal verticalPadding MEMBER m_verticalPadding NOTIFY changed)

public:
    using QObject::QObject;

    QString role() const { return m_role; }
    /// In a list of that width.
    QSizeF of(const QString &text, qreal listWidth) const;

signals:
    void changed();

private:
    QString m_role;
    QFont m_font;
    qreal m_wrapWidth = 0;
    qreal m_leastHeight = 0;
    qreal m_horizontalPadding = 0;
    qreal m_verticalPadding = 0;
};

} // namespace glimmet
