// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import "../kit"

// A file of the start page: a sign for its type, and its name.
Rectangle {
    id: tile

    // { name, type }
    property var file
    property bool lifted: false

    height: 32
    radius: 4
    color: lifted ? Theme.accentSoft : Theme.panel
    border.color: lifted ? Theme.accent : Theme.line

    Row {
        anchors.centerIn: parent
        spacing: 4
        Image {
            id: sign
            anchors.verticalCenter: parent.verticalCenter
            visible: tile.width >= 72
            width: 16
            height: 16
            sourceSize: Qt.size(16 * Theme.pixelRatio, 16 * Theme.pixelRatio)
            source: "../kit/types/" + tile.file.type + ".svg"
        }
        Label {
            anchors.verticalCenter: parent.verticalCenter
            width: Math.min(implicitWidth, tile.width - (sign.visible ? 28 : 8))
            text: tile.file.name
            font.pixelSize: Theme.small
            elide: Text.ElideMiddle
        }
    }
}
