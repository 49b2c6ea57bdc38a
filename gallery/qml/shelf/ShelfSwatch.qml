// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import "../kit"

// A colour to choose, by pointer or keys.
Rectangle {
    id: swatch

    property string name
    property bool chosenNow: false

    signal chosen()

    width: 22
    height: 22
    radius: 11
    border.width: 1
    border.color: Theme.strongLine
    activeFocusOnTab: true
    Accessible.role: Accessible.RadioButton
    Accessible.name: name
    Accessible.checked: chosenNow
    Accessible.onPressAction: chosen()
    Keys.onSpacePressed: chosen()
    Keys.onReturnPressed: chosen()

    Rectangle {
        anchors { fill: parent; margins: -4 }
        radius: width / 2
        visible: swatch.activeFocus || swatch.chosenNow || mouse.containsMouse
        color: "transparent"
        border.width: swatch.activeFocus ? 2 : 1
        border.color: swatch.activeFocus || swatch.chosenNow ? Theme.focus : Theme.strongLine
    }
    MouseArea {
        id: mouse
        anchors.fill: parent
        hoverEnabled: true
        onClicked: swatch.chosen()
    }
}
