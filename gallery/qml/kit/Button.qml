// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import QtQuick.Controls 2.5 as Controls

// A push button; `primary` for the one that matters.
Controls.AbstractButton {
    id: button

    property bool primary: false
    // A drawn sign in place of the text, which then only names the button.
    property string sign

    implicitWidth: Math.max(72, label.implicitWidth + 28)
    implicitHeight: 30
    contentItem: Label {
        id: label
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        text: button.sign === "" ? button.text : ""
        font.pixelSize: 13
        font.weight: button.primary ? Font.DemiBold : Font.Normal
        color: !button.enabled ? Theme.disabledText : button.primary ? Theme.accentContrast : Theme.text
    }
    Sign {
        anchors.centerIn: parent
        name: button.sign
        size: 16
    }
    background: Rectangle {
        radius: 4
        color: !button.enabled ? Theme.sunken
             : button.primary ? (button.down ? Theme.accentPress : button.hovered ? Theme.accentHover : Theme.accent)
                              : (button.down ? Theme.line : button.hovered ? Theme.sunken : Theme.panel)
        border.width: button.visualFocus ? 2 : button.primary && button.enabled ? 0 : 1
        border.color: button.visualFocus ? Theme.focus : Theme.strongLine
    }
}
