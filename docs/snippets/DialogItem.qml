// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0

Item {
    width: 320
    height: 240

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
            onClicked: dialog.show()
        }
    }

    DialogItem {
        id: dialog
        x: 60
        y: 70
        width: 200
        height: 100
        visible: open
        onAccepted: answer.text = result

        Rectangle {
            anchors.fill: parent
            color: "wheat"
        }
        TextInput {
            x: 20
            y: 20
            width: 160
            focus: true
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
}
