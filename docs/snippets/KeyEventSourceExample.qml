// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0

// Two on-screen keys that type into whatever has the focus.
Column {
    width: 200
    height: 100
    spacing: 8

    TextInput {
        width: parent.width
        focus: true
        text: "Type here: "
    }
    //! [source]
    Row {
        spacing: 8
        Repeater {
            model: [{ key: Qt.Key_A, text: "a" }, { key: Qt.Key_B, text: "b" }]
            Rectangle {
                width: 40
                height: 40
                color: "#E7F1F4"
                Text { anchors.centerIn: parent; text: modelData.text }
                MouseArea {
                    anchors.fill: parent
                    onClicked: source.triggerKeyEvent(modelData.key, modelData.text)
                }
            }
        }
    }
    //! [source]
    KeyEventSource { id: source }
}
