// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0
import "../kit"

// What a dialog of an application may look like: a card in the middle of the window, a colour for
// each type, a veil over the rest when it is modal.
DialogItem {
    id: dialog

    property int level: 1
    signal anotherWanted()

    readonly property var look: {
        switch (type) {
        case DialogItem.TypeWarning: return { word: "Warning", tone: Theme.warning, text: "The file was changed by another program." };
        case DialogItem.TypeError: return { word: "Error", tone: Theme.error, text: "The file could not be written." };
        case DialogItem.TypeOk: return { word: "Done", tone: Theme.positive, text: "The file has been written." };
        }
        return { word: "Question", tone: Theme.accent, text: "Which name should the file have?" };
    }

    x: parent ? Math.round((parent.width - width) / 2) + (level - 1) * 28 : 0
    y: parent ? Math.round((parent.height - height) / 2) + (level - 1) * 28 : 0
    width: 360
    height: 196
    opacity: open ? 1 : 0
    visible: opacity > 0
    Behavior on opacity { NumberAnimation { duration: 120 } }
    Keys.onEscapePressed: reject()

    Rectangle {
        visible: dialog.modal && dialog.parent
        x: -dialog.x
        y: -dialog.y
        width: visible ? dialog.parent.width : 0
        height: visible ? dialog.parent.height : 0
        color: Theme.text
        opacity: 0.18
    }
    Surface {
        anchors.fill: parent
        border.color: Theme.strongLine

        // Presses on the card are not for what lies below it; it can be moved by its ground.
        MouseArea {
            anchors.fill: parent
            drag.target: dialog
        }
        Rectangle {
            width: parent.width
            height: 5
            radius: 2
            color: dialog.look.tone
        }
        Label {
            x: 22
            y: 22
            text: dialog.look.word + (dialog.level > 1 ? ", level " + dialog.level : "")
            font.pixelSize: Theme.large
            font.weight: Font.DemiBold
        }
        Label {
            x: 22
            y: 52
            width: parent.width - 44
            wrapMode: Text.WordWrap
            text: dialog.look.text
            color: Theme.softText
        }
        Rectangle {
            x: 22
            y: 86
            width: parent.width - 44
            height: 32
            radius: 4
            color: Theme.panel
            border.color: field.activeFocus ? Theme.focus : Theme.strongLine
            TextInput {
                id: field
                anchors.fill: parent
                anchors.leftMargin: 10
                anchors.rightMargin: 10
                verticalAlignment: Text.AlignVCenter
                clip: true
                focus: true
                selectByMouse: true
                color: Theme.text
                font.family: Theme.family
                font.pixelSize: 14
                text: "Draft " + dialog.level
                onAccepted: dialog.accept(text)
            }
        }
        Row {
            anchors.right: parent.right
            anchors.bottom: parent.bottom
            anchors.margins: 20
            spacing: 8
            Button { text: "Another…"; onClicked: dialog.anotherWanted() }
            Button { text: "Cancel"; onClicked: dialog.reject() }
            Button { text: "Accept"; primary: true; onClicked: dialog.accept(field.text) }
        }
    }
}
