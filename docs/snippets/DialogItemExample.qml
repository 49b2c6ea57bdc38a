// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import QtQuick.Window 2.12
import ombrel.Controls 1.0

// A press on the button asks for a name; Escape closes, and what had the focus has it again.
Item {
    id: root
    width: 320
    height: 240
    property Item before

    function giveFocusBack() {
        if (before)
            before.forceActiveFocus();
    }

    Rectangle {
        anchors.centerIn: parent
        width: 160
        height: 32
        border.color: "grey"
        Text {
            id: answer
            anchors.centerIn: parent
            text: "Rename…"
        }
        MouseArea {
            anchors.fill: parent
            onClicked: {
                forceActiveFocus();
                root.before = Window.activeFocusItem;
                dialog.show();
            }
        }
    }

    //! [dialog]
    DialogItem {
        id: dialog
        x: 60
        y: 70
        width: 200
        height: 100
        visible: open
        onAccepted: {
            answer.text = result;
            root.giveFocusBack();
        }
        onRejected: root.giveFocusBack()
        Keys.onEscapePressed: reject()

        Rectangle {
            anchors.fill: parent
            color: "wheat"
        }
        TextInput {
            x: 20
            y: 20
            width: 160
            focus: true
            activeFocusOnTab: true
            text: "New name"
            onAccepted: dialog.accept(text)
        }
        Text {
            x: 20
            y: 64
            text: "Cancel"
            MouseArea {
                anchors.fill: parent
                onClicked: dialog.reject()
            }
        }
    }
    //! [dialog]
}
