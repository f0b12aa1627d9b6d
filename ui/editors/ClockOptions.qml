import QtQuick
import Glimmet

Column {
    id: root

    required property TickerViewModel ticker

    spacing: Theme.rowSpacing

    GlimmetToggle {
        width: root.width
        label: "Show seconds"
        on: root.ticker.showSeconds
        onToggled: root.ticker.showSeconds = checked
    }
    GlimmetToggle {
        width: root.width
        label: "24-hour format"
        on: root.ticker.use24Hour
        onToggled: root.ticker.use24Hour = checked
    }
}
