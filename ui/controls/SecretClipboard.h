#pragma once

#include <QClipboard>
#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace glimmet {

/// While there is one, what the program puts of its secret onto the clipboard, or into the selection that a
/// middle click pastes, is marked by the hint at which clipboard histories leave a text out. It does not
/// matter which way it gets there: keys, mouse or an assistive program.
class SecretClipboard : public QObject {
    Q_OBJECT
    QML_ELEMENT
    /// The text of which no part shall be kept.
    Q_PROPERTY(QString secret READ secret WRITE setSecret NOTIFY secretChanged)

public:
    explicit SecretClipboard(QObject *parent = nullptr);

    QString secret() const { return m_secret; }
    void setSecret(const QString &secret);

signals:
    void secretChanged();

private:
    void mark(QClipboard::Mode mode);

    QString m_secret;
};

} // namespace glimmet
