// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0

// A dialog with a text, and one on top of it that asks before the text is lost.
Item {
    id: page
    width: 320
    height: 240

    Component.onCompleted: editor.show()

    //! [dialogs]
    DialogItem {
        id: editor
        anchors.centerIn: parent
        width: 240
        height: 120
        visible: open
        onOpened: field.forceActiveFocus()
        // What is written would be lost: ask.
        Keys.onEscapePressed: field.text === "" ? reject() : question.show()

        Rectangle {
            anchors.fill: parent
            color: "wheat"
        }
        TextInput {
            id: field
            x: 16
            y: 16
            width: 208
            focus: true
            text: "Dear Ann,"
            onAccepted: editor.accept(text)
        }
    }
    DialogItem {
        id: question
        anchors.centerIn: parent
        width: 200
        height: 80
        visible: open
        type: DialogItem.TypeWarning
        // The one below is enabled again by now.
        onAccepted: editor.reject()
        onRejected: field.forceActiveFocus()
        Keys.onEscapePressed: reject()
        Keys.onReturnPressed: accept()

        Rectangle {
            anchors.fill: parent
            color: "white"
            border.color: "grey"
        }
        Text {
            anchors.centerIn: parent
            horizontalAlignment: Text.AlignHCenter
            text: "Throw the letter away?\nReturn: yes. Escape: no."
        }
    }
    //! [dialogs]
}
