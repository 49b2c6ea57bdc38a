// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import "../kit"

// A card that follows a pointer across the stage, pales where the window ends, and spins away.
Item {
    id: piece

    property alias motion: motion

    Repeater {
        model: ["Beach", "Hills", "Notes"]
        Surface {
            readonly property bool taken: index < 2
            x: 16
            y: 16 + index * 44
            width: 88
            height: 36
            color: taken ? Theme.accentSoft : Theme.panel
            border.color: taken ? Theme.accent : Theme.line
            Label {
                x: 12
                anchors.verticalCenter: parent.verticalCenter
                text: modelData
                font.pixelSize: Theme.small
            }
        }
    }
    Rectangle {
        id: card
        x: 24
        y: 40
        width: 104
        height: 36
        radius: Theme.radius
        color: Theme.accent
        Label {
            anchors.centerIn: parent
            text: "2 documents"
            font.pixelSize: Theme.small
            color: Theme.accentContrast
            renderType: Text.QtRendering
        }
    }
    SequentialAnimation {
        id: motion
        PropertyAction { target: card; property: "rotation"; value: 0 }
        ParallelAnimation {
            NumberAnimation { target: card; property: "scale"; to: 1; duration: 200 }
            NumberAnimation { target: card; property: "x"; to: 24; duration: 200 }
            NumberAnimation { target: card; property: "y"; to: 40; duration: 200 }
        }
        ParallelAnimation {
            NumberAnimation { target: card; property: "x"; to: piece.width - 72; duration: 1600; easing.type: Easing.InOutCubic }
            NumberAnimation { target: card; property: "y"; to: 100; duration: 1600; easing.type: Easing.InOutSine }
        }
        NumberAnimation { target: card; property: "opacity"; to: 0.35; duration: 300 }
        NumberAnimation { target: card; property: "x"; to: piece.width - 160; duration: 1200; easing.type: Easing.InOutCubic }
        NumberAnimation { target: card; property: "opacity"; to: 1; duration: 300 }
        ParallelAnimation {
            NumberAnimation { target: card; property: "rotation"; to: 20; duration: 500 }
            NumberAnimation { target: card; property: "scale"; to: 0.7; duration: 500 }
        }
    }
}
