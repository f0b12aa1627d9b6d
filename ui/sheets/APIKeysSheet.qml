pragma ComponentBehavior: Bound
import QtQuick
import Glimmet

// Where the credentials of the revenue platforms are entered.
Sheet {
    id: root

    required property TickerViewModel ticker
    // The number of the credential whose field has the keyboard at first; -1: none.
    property int wanted: -1

    symbol: "key.fill"
    title: "API Keys"

    Repeater {
        model: CredentialLabels.sections

        KeySection {
            id: section

            required property int modelData
            readonly property var keys: CredentialLabels.fields(modelData)

            width: root.width - 2 * Theme.sheetMargin
            title: CredentialLabels.title(modelData)
            selected: root.ticker.revenueProvider === modelData
            value: mainKey.text
            trouble: mainKey.trouble
            remedy: mainKey.remedy
            problem: lastProblem.text
            onRemedyChosen: {
                // The button goes with what it is for, and the keyboard would go with it.
                (fields.itemAt(0) as APIKeyField).takeKeyboard();
                root.ticker.unlockKeys();
            }
            // The user came for the platform that is chosen.
            Component.onCompleted: {
                if (selected)
                    root.opensAt = section;
            }

            CredentialText {
                id: mainKey
                ticker: root.ticker
                key: section.keys[0]
            }
            FetchProblemText {
                id: lastProblem
                ticker: root.ticker
                provider: section.modelData
            }
            Repeater {
                id: fields
                model: section.keys

                APIKeyField {
                    id: field

                    required property int modelData

                    width: section.contentWidth
                    caption: CredentialLabels.caption(modelData)
                    placeholder: CredentialLabels.placeholder(modelData)
                    hint: CredentialLabels.hint(modelData)
                    name: CredentialLabels.name(modelData)
                    value: credential.text
                    status: credential.trouble || CredentialLabels.status(credential.text.length > 0)
                    startsHere: modelData === root.wanted
                    onEntered: root.ticker.beginCredentialEditing()
                    onExited: root.ticker.endCredentialEditing()
                    onEdited: text => credential.text = text

                    CredentialText {
                        id: credential
                        ticker: root.ticker
                        key: field.modelData
                    }
                }
            }
        }
    }
}
