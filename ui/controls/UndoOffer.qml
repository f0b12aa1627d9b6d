import QtQuick

// What stands in the place of a removed entry for as long as it can be put back.
FocusScope {
    required property string subject

    signal returned
}
