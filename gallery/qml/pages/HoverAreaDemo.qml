// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0
import "../kit"

Demo {
    id: demo

    property int clicks: 0
    property HoverArea last: null

    title: "HoverArea"
    steps: [
        Step { text: "Move across the buttons: each lies under a hover area."; when: demo.last !== null },
        Step { text: "Click one: the press goes through."; when: demo.clicks > 0 }
    ]
    codeValues: ({ enabled: enabledEditor.value })
    stageHeight: 200

    Row {
        anchors.centerIn: parent
        spacing: 16
        Repeater {
            model: ["One", "Two", "Three"]
            Rectangle {
                width: 116
                height: 84
                radius: Theme.radius
                color: area.hovered ? Theme.accentSoft : Theme.panel
                border.color: area.hovered ? Theme.accent : Theme.line
                Button {
                    anchors.centerIn: parent
                    text: modelData
                    onClicked: { ++demo.clicks; log.note(modelData + ": clicked"); }
                }
                HoverArea {
                    id: area
                    anchors.fill: parent
                    enabled: enabledEditor.value
                    onHoveredChanged: {
                        demo.last = area;
                        log.note(modelData + ": hoveredChanged(" + area.hovered + ")");
                    }
                }
            }
        }
    }

    editors: [
        BoolEditor { id: enabledEditor; label: "enabled"; value: true; onEdited: value = newValue },
        ValueRow { label: "hovered"; value: demo.last ? demo.last.hovered : false },
        ValueRow { label: "clicks"; value: demo.clicks }
    ]
}
