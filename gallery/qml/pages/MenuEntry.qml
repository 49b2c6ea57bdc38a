// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import "../kit"

// A line of a menu or of a combo box's list.
Rectangle {
    id: entry

    property alias text: label.text
    property bool checked: false
    property bool current: false
    signal entered()
    Accessible.role: Accessible.MenuItem
    Accessible.name: text
    Accessible.selected: current
    Accessible.onPressAction: picked()
    signal picked()

    implicitWidth: 160
    implicitHeight: 30
    radius: 4
    color: current ? Theme.accentSoft : Theme.panel

    Label {
        id: label
        Accessible.ignored: true
        x: 10
        width: parent.width - 34
        height: parent.height
        verticalAlignment: Text.AlignVCenter
        font.pixelSize: Theme.medium
        font.weight: entry.checked ? Font.DemiBold : Font.Normal
        color: entry.checked ? Theme.accentText : Theme.text
    }
    Rectangle {
        visible: entry.checked
        anchors.right: parent.right
        anchors.rightMargin: 12
        anchors.verticalCenter: parent.verticalCenter
        width: 6
        height: 6
        radius: 3
        color: Theme.accent
    }
    MouseArea {
        id: mouse
        anchors.fill: parent
        hoverEnabled: true
        onEntered: entry.entered()
        onClicked: entry.picked()
    }
}
