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
        model: KeyFaces.sections

        KeySection {
            id: section

            required property int modelData
            readonly property var keys: KeyFaces.fields(modelData)

            width: root.width - 2 * Theme.sheetMargin
            title: KeyFaces.title(modelData)
            selected: root.ticker.revenueProvider === modelData
            value: root.ticker[KeyFaces.property(keys[0])]

            Repeater {
                model: section.keys

                APIKeyField {
                    required property int modelData

                    width: section.contentWidth
                    caption: KeyFaces.caption(modelData)
                    placeholder: KeyFaces.placeholder(modelData)
                    hint: KeyFaces.hint(modelData)
                    name: KeyFaces.name(modelData)
                    value: root.ticker[KeyFaces.property(modelData)]
                    onEdited: text => root.ticker[KeyFaces.property(modelData)] = text
                }
            }
        }
    }
}
