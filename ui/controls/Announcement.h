#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>
#include <QQuickItem>
#include <QString>
#include <QTimer>
#include <QtQml/qqmlregistration.h>

namespace glimmet {

/// Has screen readers say a text that changes by itself. It is said once it has rested for a while, and not
/// soon after another, so that of many changes only a few are heard; the text that is there from the
/// beginning is not said.
class Announcement : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QQuickItem *item READ item WRITE setItem NOTIFY itemChanged)
    Q_PROPERTY(QString text READ text WRITE setText NOTIFY textChanged)
    /// Milliseconds that a text rests before it is said.
    Q_PROPERTY(int rest MEMBER m_rest NOTIFY pacingChanged)
    /// Milliseconds from one that is said to the next.
    Q_PROPERTY(int gap MEMBER m_gap NOTIFY pacingChanged)

public:
    explicit Announcement(QObject *parent = nullptr);

    /// What the news is of.
    QQuickItem *item() const { return m_item; }
    void setItem(QQuickItem *item);
    QString text() const { return m_text; }
    void setText(const QString &text);

signals:
    void itemChanged();
    void textChanged();
    void pacingChanged();
    /// Now is the time for `text`; it is handed to the assistive programs that listen.
    void said(const QString &text);

private:
    void say();
    int patience() const;

    QPointer<QQuickItem> m_item;
    QString m_text;
    QString m_lastSaid;
    QTimer m_timer;
    QElapsedTimer m_sinceSaid;
    int m_rest = 1500;
    int m_gap = 10'000;
    bool m_hasBegun = false;
};

} // namespace glimmet
