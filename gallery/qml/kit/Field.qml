// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import QtQuick.Controls 2.5 as Controls

// A text field of the editors. `accepted` comes with Return and when the field is left. With `shown`
// the field has that text whenever nobody types into it.
Controls.TextField {
    id: field

    property bool valid: true
    // What is read out; the name of the property that it edits.
    property string name: placeholderText
    property var shown
    // For the kit's own page: "hover", "pressed" or "focus" has it look so without being it.
    property string pose

    function restore() {
        if (shown !== undefined)
            text = shown;
    }
    onShownChanged: if (!activeFocus) restore()
    onActiveFocusChanged: if (!activeFocus) restore()
    Component.onCompleted: restore()

    Accessible.role: Accessible.EditableText
    Accessible.name: name
    implicitHeight: Theme.controlHeight
    leftPadding: 8
    rightPadding: 8
    topPadding: 0
    bottomPadding: 0
    verticalAlignment: TextInput.AlignVCenter
    selectByMouse: true
    color: enabled ? Theme.text : Theme.disabledText
    placeholderTextColor: enabled ? Theme.faintText : Theme.disabledText
    selectionColor: Theme.accent
    selectedTextColor: Theme.accentContrast
    font.family: Theme.family
    font.pixelSize: Theme.medium
    background: Rectangle {
        radius: 4
        color: field.enabled ? Theme.panel : Theme.sunken
        readonly property bool focused: field.activeFocus || field.pose === "focus"
        border.width: focused || !field.valid ? Theme.focusWidth : 1
        border.color: !field.valid ? Theme.error
                    : focused ? Theme.focus
                    : field.hovered || field.pose === "hover" ? Theme.strongLine : Theme.line
    }
}
