// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import "kit"

// A page in the sidebar, or, `minor`, a type on it. The list has the keyboard's focus, not the entry.
Item {
    id: entry

    property string text
    property bool minor: false
    property bool current: false
    property bool focused: false

    signal clicked()

    Accessible.role: Accessible.ListItem
    Accessible.name: text
    Accessible.selectable: true
    Accessible.selected: current
    Accessible.onPressAction: clicked()

    Rectangle {
        x: 12
        width: parent.width - 24
        height: parent.height
        radius: Theme.radius
        color: entry.current ? Theme.accentSoft : mouse.containsMouse ? Theme.hover : "transparent"
        border.width: entry.focused ? Theme.focusWidth : 0
        border.color: Theme.focus
    }
    Label {
        anchors { fill: parent; leftMargin: entry.minor ? 34 : 22; rightMargin: 16 }
        verticalAlignment: Text.AlignVCenter
        text: entry.text
        color: entry.current ? Theme.accentText : entry.minor ? Theme.softText : Theme.text
        font.pixelSize: entry.minor ? Theme.small : Theme.normal
        font.weight: entry.current ? Font.DemiBold : Font.Normal
        Accessible.ignored: true
    }
    MouseArea {
        id: mouse
        anchors.fill: parent
        hoverEnabled: true
        onClicked: entry.clicked()
    }
}
