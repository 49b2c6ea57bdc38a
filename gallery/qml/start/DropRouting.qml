// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import "../kit"

// Three files come over one zone, and each goes to the first handler that takes it.
Item {
    id: piece

    property int at: -1
    readonly property var files: ["beach.png", "clip.mp4", "notes.txt"]
    property alias motion: motion

    Row {
        x: 16
        y: 16
        spacing: 8
        Repeater {
            model: ["images", "videos", "any file"]
            Rectangle {
                readonly property bool taken: piece.at === index
                width: (piece.width - 48) / 3
                height: 32
                radius: Theme.radius
                color: taken ? Theme.accent : Theme.panel
                border.color: taken ? Theme.accent : Theme.line
                Label {
                    anchors.centerIn: parent
                    text: modelData
                    font.pixelSize: Theme.small
                    color: parent.taken ? Theme.accentContrast : Theme.softText
                }
            }
        }
    }
    Rectangle {
        id: file
        x: 16 + (Math.max(0, piece.at) + 0.5) * (piece.width - 32) / 3 - width / 2
        y: 112
        width: 96
        height: 32
        radius: Theme.radius
        color: Theme.accentSoft
        border.color: Theme.accent
        Label {
            anchors.centerIn: parent
            text: piece.files[Math.max(0, piece.at)]
            font.pixelSize: Theme.small
        }
    }
    SequentialAnimation {
        id: motion
        SequentialAnimation {
            loops: 3
            ScriptAction { script: piece.at = (piece.at + 1) % 3 }
            PropertyAction { target: file; property: "y"; value: 112 }
            NumberAnimation { target: file; property: "y"; to: 60; duration: 1000; easing.type: Easing.InOutCubic }
            PauseAnimation { duration: 600 }
        }
    }
}
