// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import "../kit"

// Three dialogs open above one another, and close again down to the first.
Item {
    id: piece

    property int open: 1
    property alias motion: motion

    Repeater {
        model: [Theme.accent, Theme.warning, Theme.positive]
        Surface {
            x: piece.width / 2 - width / 2 + (index - 1) * 24
            y: 24 + index * 24
            width: 144
            height: 72
            border.color: Theme.strongLine
            opacity: piece.open > index ? 1 : 0
            Behavior on opacity { NumberAnimation { duration: 250 } }
            Rectangle { width: parent.width; height: 4; radius: 2; color: modelData }
            Label { x: 12; y: 12; text: ["Question", "Warning", "Done"][index]; font.pixelSize: Theme.small }
            Rectangle { anchors { right: parent.right; bottom: parent.bottom; margins: 8 } width: 48; height: 16; radius: 4; color: Theme.line }
        }
    }
    SequentialAnimation {
        id: motion
        PauseAnimation { duration: 600 }
        ScriptAction { script: piece.open = 2 }
        PauseAnimation { duration: 800 }
        ScriptAction { script: piece.open = 3 }
        PauseAnimation { duration: 1200 }
        ScriptAction { script: piece.open = 2 }
        PauseAnimation { duration: 800 }
        ScriptAction { script: piece.open = 1 }
        PauseAnimation { duration: 400 }
    }
}
