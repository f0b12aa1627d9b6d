import QtQuick
import Glimmet

Rectangle {
    implicitHeight: Theme.hairline
    color: Theme.separator
}
