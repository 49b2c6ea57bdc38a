// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0
import "../kit"

// Three dialogs close from the top down and open again, each above the one before; what lies below a
// modal one is disabled, and pale. What is drawn shows the state of real dialogs.
Item {
    id: piece

    property alias motion: motion
    readonly property var dialogs: [question, warning, done]

    // In no window: in one they would move to its content item, take the keyboard and disable all the rest.
    readonly property Item place: Item {
        Item { id: page }
        DialogItem { id: question; type: DialogItem.TypeNormal }
        DialogItem { id: warning; type: DialogItem.TypeWarning }
        DialogItem { id: done; type: DialogItem.TypeOk }
    }

    function showAll() {
        for (const dialog of dialogs) {
            if (!dialog.open)
                dialog.show();
        }
    }
    Component.onCompleted: showAll()

    Surface {
        x: 12
        y: 12
        width: parent.width - 24
        height: parent.height - 24
        border.color: Theme.strongLine
        Column {
            x: 16
            y: 16
            spacing: 8
            opacity: page.enabled ? 1 : 0.35
            Behavior on opacity { NumberAnimation { duration: 200 } }
            Repeater {
                model: [0.7, 0.5, 0.6, 0.4, 0.55, 0.3]
                Rectangle {
                    width: (piece.width - 56) * modelData
                    height: 8
                    radius: 4
                    color: index === 0 ? Theme.accent : Theme.strongLine
                }
            }
        }
    }
    Repeater {
        model: [{ dialog: question, word: "Question", tone: Theme.accent },
                { dialog: warning, word: "Warning", tone: Theme.warning },
                { dialog: done, word: "Done", tone: Theme.positive }]
        Surface {
            readonly property DialogItem dialog: modelData.dialog
            z: dialog.z
            x: piece.width / 2 - width / 2 + (index - 1) * 24
            y: 24 + index * 24
            width: 144
            height: 64
            border.color: Theme.strongLine
            opacity: dialog.open ? 1 : 0
            Behavior on opacity { NumberAnimation { duration: 200 } }
            Item {
                anchors.fill: parent
                opacity: parent.dialog.enabled ? 1 : 0.35
                Rectangle { width: parent.width; height: 4; radius: 2; color: modelData.tone }
                Label { x: 12; y: 12; text: modelData.word; font.pixelSize: Theme.small; font.weight: Font.DemiBold }
                Rectangle {
                    anchors { right: parent.right; bottom: parent.bottom; margins: 8 }
                    width: 48
                    height: 16
                    radius: 4
                    color: modelData.tone
                }
            }
        }
    }

    SequentialAnimation {
        id: motion
        ScriptAction { script: piece.showAll() }
        PauseAnimation { duration: 700 }
        ScriptAction { script: done.accept() }
        PauseAnimation { duration: 700 }
        ScriptAction { script: warning.reject() }
        PauseAnimation { duration: 700 }
        ScriptAction { script: question.accept("a name") }
        PauseAnimation { duration: 800 }
        ScriptAction { script: question.show() }
        PauseAnimation { duration: 700 }
        ScriptAction { script: warning.show() }
        PauseAnimation { duration: 700 }
        ScriptAction { script: done.show() }
        PauseAnimation { duration: 400 }
    }
}
