#pragma once

#include "platform/updates/UpdateState.h"

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace glimmet {

/// What the window of software updates says about a state. Buttons without words are not there.
struct UpdateWords {
    QString symbol{};
    QString heading{};
    QString message{};
    QString defaultButton{}; ///< what Return does
    QString otherButton{};

    friend bool operator==(const UpdateWords &, const UpdateWords &) = default;
};

UpdateWords updateWords(const UpdateState &state);

/// The state of the updater as its window shows it, and what the user answers.
class UpdateWindowModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The window is handed its model.")
    Q_PROPERTY(QString symbol READ symbol NOTIFY changed)
    Q_PROPERTY(QString heading READ heading NOTIFY changed)
    Q_PROPERTY(QString message READ message NOTIFY changed)
    /// What is new; empty where the source does not say.
    Q_PROPERTY(QString changes READ changes NOTIFY changed)
    /// The service's own words of a failure; empty where there are none.
    Q_PROPERTY(QString details READ details NOTIFY changed)
    /// Whether there is nothing to do but to wait for a while.
    Q_PROPERTY(bool isWaiting READ isWaiting NOTIFY changed)
    /// Whether the symbol turns meanwhile.
    Q_PROPERTY(bool isTurning READ isTurning NOTIFY changed)
    /// From 0 to 1; -1 where it is not known.
    Q_PROPERTY(qreal progress READ progress NOTIFY changed)
    Q_PROPERTY(QString defaultButton READ defaultButton NOTIFY changed)
    Q_PROPERTY(QString otherButton READ otherButton NOTIFY changed)
    Q_PROPERTY(bool isOtherEnabled READ isOtherEnabled NOTIFY changed)

public:
    explicit UpdateWindowModel(QObject *parent = nullptr);

    void setState(const UpdateState &state);

    QString symbol() const { return m_words.symbol; }
    QString heading() const { return m_words.heading; }
    QString message() const { return m_words.message; }
    QString changes() const;
    QString details() const { return m_state.failure.details; }
    bool isWaiting() const;
    bool isTurning() const { return m_state.phase == UpdatePhase::Checking; }
    qreal progress() const;
    QString defaultButton() const { return m_words.defaultButton; }
    QString otherButton() const { return m_words.otherButton; }
    bool isOtherEnabled() const;

    /// What the default button and Return do: install, restart, or close.
    Q_INVOKABLE void chooseDefault();
    /// What the other button does: cancel, or close.
    Q_INVOKABLE void chooseOther();
    /// What Escape does: cancel what can be cancelled, else close.
    Q_INVOKABLE void escape();

signals:
    void changed();
    void installChosen();
    void restartChosen();
    void cancelChosen();
    void closeChosen();

private:
    UpdateState m_state;
    UpdateWords m_words;
};

} // namespace glimmet
