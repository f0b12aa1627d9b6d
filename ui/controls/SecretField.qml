import QtQuick
import Glimmet

// A field for what only the user shall see: dots, until it is revealed.
BorderedField {
    id: field

    required property bool isRevealed

    font.family: Theme.monospacedFamily
    echoMode: isRevealed ? TextInput.Normal : TextInput.Password
    passwordCharacter: "•"
    passwordMaskDelay: 0
    inputMethodHints: Qt.ImhSensitiveData | Qt.ImhNoPredictiveText | Qt.ImhNoAutoUppercase

    SecretClipboard {
        secret: field.text
    }
}
