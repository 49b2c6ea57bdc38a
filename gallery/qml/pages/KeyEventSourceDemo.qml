// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0
import "../kit"

Demo {
    id: demo

    title: "KeyEventSource"
    steps: [
        Step { text: "Click into the field, then type with the keys below it."; when: field.text !== "" },
        Step { text: "Set a target: it silences them."; when: source.target !== null }
    ]
    stageHeight: 260

    KeyEventSource {
        id: source
        onTargetChanged: log.note("targetChanged")
    }
    Column {
        anchors.centerIn: parent
        spacing: 8

        Field {
            id: field
            width: keys.width
            implicitHeight: 36
            placeholderText: "Click here first"
        }
        Item { width: 1; height: 4 }
        Column {
            id: keys
            // Not for Tab: a key that takes the focus would have nobody to type to.
            Accessible.role: Accessible.Grouping
            Accessible.name: "On-screen keyboard"
            spacing: 4
            Repeater {
                model: ["QWERTYUIOP", "ASDFGHJKL", "ZXCVBNM"]
                Row {
                    anchors.horizontalCenter: parent.horizontalCenter
                    spacing: 4
                    Repeater {
                        model: modelData.split("")
                        Button {
                            width: 34
                            height: 34
                            focusPolicy: Qt.NoFocus
                            text: modelData
                            onClicked: demo.type(Qt.Key_A + modelData.charCodeAt(0) - 65, modelData.toLowerCase())
                        }
                    }
                }
            }
            Row {
                anchors.horizontalCenter: parent.horizontalCenter
                spacing: 4
                Button { width: 74; height: 34; focusPolicy: Qt.NoFocus; text: "Left"; sign: "arrow-left"; onClicked: demo.type(Qt.Key_Left, "") }
                Button { width: 154; height: 34; focusPolicy: Qt.NoFocus; text: "Space"; onClicked: demo.type(Qt.Key_Space, " ") }
                Button { width: 74; height: 34; focusPolicy: Qt.NoFocus; text: "Backspace"; sign: "backspace"; onClicked: demo.type(Qt.Key_Backspace, "") }
            }
        }
    }

    function type(key, text) {
        source.triggerKeyEvent(key, text);
        log.note("triggerKeyEvent(" + key + ", “" + text + "”)");
    }

    editors: [
        BoolEditor {
            label: "target set"
            value: source.target !== null
            onEdited: source.target = newValue ? field : null
        },
        ValueRow { label: "field"; value: field.text }
    ]
}
