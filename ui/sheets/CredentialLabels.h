#pragma once

#include "revenue/Credentials.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QVariantList>
#include <QtQml/qqmlregistration.h>

namespace glimmet {

/// How the credentials look where they are entered: a section for each revenue platform, in it a field for
/// each of the platform's credentials. QML takes platforms (RevenueProvider) and credentials (KeychainKey) as
/// numbers.
class CredentialLabels : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    /// The platforms in the order of their sections.
    Q_PROPERTY(QList<int> sections READ sections CONSTANT)

public:
    static QList<int> sections();
    Q_INVOKABLE static QString title(int provider);
    /// The platform's credentials in the order of their fields; the first one is the key itself. A repeater
    /// would take a returned list of one number for a count.
    Q_INVOKABLE static QVariantList fields(int provider);

    Q_INVOKABLE static QString caption(int key);
    /// What a screen reader says for the field: its section and its caption, since captions recur.
    Q_INVOKABLE static QString name(int key);
    Q_INVOKABLE static QString placeholder(int key);
    /// Where on the platform's pages the credential is found.
    Q_INVOKABLE static QString hint(int key);

    /// The credential that the text of the menu bar asks the user to enter; -1 where it asks for none that
    /// has a field.
    Q_INVOKABLE static int asked(int provider, const QString &text);

    /// What the badge says of a section whose key is set, or is not.
    Q_INVOKABLE static QString status(bool isSaved);
    /// What it says instead where the key store does not hold exactly what the field does; empty elsewhere.
    static QString trouble(const KeyStatus &status, bool isEmpty);
    /// What a button beside that offers; empty where it could be of no use.
    static QString remedy(const KeyStatus &status);
};

} // namespace glimmet
