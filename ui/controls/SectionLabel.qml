import QtQuick
import Glimmet

InkText {
    color: Theme.labelText
    font.pixelSize: Theme.captionSize
    font.weight: Theme.semibold
    font.letterSpacing: 1.5
}
