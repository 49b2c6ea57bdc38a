// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import "../kit"

// One picture of the library at its real size, and enlarged, on a ground of the kind that it is made for.
Item {
    id: tile

    property string folder
    property string file
    readonly property url picture: "qrc:/controls/" + folder + "/" + file

    width: 158
    height: 150

    // White pictures are for dark grounds; their names say so.
    readonly property bool onDark: file.includes("-w.")

    Rectangle {
        width: parent.width
        height: 49
        color: tile.onDark ? Theme.ink : Theme.paper
        border { width: 1; color: Theme.line }
        clip: true
        Image { anchors.centerIn: parent; source: tile.picture }
    }
    Rectangle {
        y: 48
        width: parent.width
        height: 80
        color: tile.onDark ? Theme.ink : Theme.paper
        border { width: 1; color: Theme.line }
        Image {
            id: natural
            visible: false
            source: tile.picture
        }
        Image {
            readonly property real zoom: Math.min(64 / Math.max(1, natural.implicitHeight),
                                                  120 / Math.max(1, natural.implicitWidth), 4)
            anchors.centerIn: parent
            width: natural.implicitWidth * zoom
            height: natural.implicitHeight * zoom
            source: tile.picture
        }
    }
    Label {
        y: 131
        width: parent.width
        elide: Text.ElideMiddle
        horizontalAlignment: Text.AlignHCenter
        text: tile.file
        color: Theme.softText
        font.pixelSize: Theme.tiny
    }
}
