// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12

// A document as a small card: its name, and whether it is `inside` whatever the demo is about.
Rectangle {
    id: tile

    property QtObject document
    property bool inside: false

    implicitWidth: 200
    implicitHeight: 44
    radius: Theme.radius
    color: inside ? Theme.positiveSoft : Theme.panel
    border.color: inside ? Theme.positive : Theme.strongLine

    Label {
        x: 16
        width: parent.width - 32
        anchors.verticalCenter: parent.verticalCenter
        text: tile.document ? Theme.oneLine(tile.document.name) : ""
    }
}
