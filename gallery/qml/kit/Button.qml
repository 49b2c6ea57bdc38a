// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import QtQuick.Controls 2.5 as Controls

// A push button; `primary` for the one that matters, `flat` for one without a ground.
Controls.AbstractButton {
    id: button

    property bool primary: false
    property bool flat: false
    // A drawn sign in place of the text, which then only names the button.
    property string sign
    // For the kit's own page: "hover", "pressed" or "focus" has it look so without being it.
    property string pose
    readonly property bool shownFocused: visualFocus || pose === "focus"
    readonly property bool over: hovered || pose === "hover"
    readonly property bool held: down || pose === "pressed"

    implicitWidth: sign !== "" ? 32 : Math.max(flat ? 0 : 72, label.implicitWidth + (flat ? 16 : 28))
    implicitHeight: 32
    Accessible.role: checkable ? Accessible.CheckBox : Accessible.Button
    Accessible.name: text
    contentItem: Label {
        id: label
        Accessible.ignored: true
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        text: button.sign === "" ? button.text : ""
        font.pixelSize: Theme.medium
        font.weight: button.primary ? Font.DemiBold : Font.Normal
        color: !button.enabled ? Theme.disabledText : button.primary ? Theme.accentContrast
             : button.flat || button.checked ? Theme.accentText : Theme.text
    }
    Sign {
        anchors.centerIn: parent
        name: button.sign
        size: 16
        opacity: button.enabled ? 1 : 0.4
    }
    background: Rectangle {
        radius: 4
        color: button.flat ? (button.held && button.checked ? Theme.line
                              : button.held || button.checked ? Theme.accentSoft
                              : button.over && button.enabled ? Theme.hover : "transparent")
             : !button.enabled ? Theme.sunken
             : button.primary ? (button.held ? Theme.accentPress : button.over ? Theme.accentHover : Theme.accent)
             : button.checked ? Theme.accentSoft
                              : (button.held ? Theme.line : button.over ? Theme.hover : Theme.panel)
        border.width: button.shownFocused ? Theme.focusWidth
                    : button.flat || (button.primary && button.enabled) ? 0 : 1
        border.color: button.shownFocused ? Theme.focus : Theme.strongLine
        // The focus on a coloured ground is told by a ring around it.
        Rectangle {
            anchors.fill: parent
            anchors.margins: -4
            visible: button.shownFocused && button.primary
            radius: 8
            color: "transparent"
            border.width: Theme.focusWidth
            border.color: Theme.focus
        }
    }
}
