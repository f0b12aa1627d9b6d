pragma ComponentBehavior: Bound
import QtQuick
import Glimmet

// Where the credentials of the revenue platforms are entered.
Sheet {
    id: root

    required property TickerViewModel ticker

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
            onRemedyChosen: root.ticker.unlockKeys()

            CredentialText {
                id: mainKey
                ticker: root.ticker
                key: section.keys[0]
            }
            Repeater {
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
                    onEntered: root.ticker.beginCredentialEditing()
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
