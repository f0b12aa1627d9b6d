import QtQuick

// What stands in the place of a removed entry for as long as it can be put back.
FocusScope {
    required property string subject

    signal returned

    // The keyboard goes on from its place to its button.
    focus: true
}
