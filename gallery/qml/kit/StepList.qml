// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12

// The steps of a demo, numbered; a tick in place of the number once a step is done.
Column {
    id: list

    property var steps: []

    spacing: 4
    Repeater {
        model: list.steps
        Item {
            id: row
            readonly property QtObject step: modelData
            width: list.width
            height: Math.max(20, Math.ceil(label.height) + 2)
            Accessible.role: Accessible.StaticText
            Accessible.name: (index + 1) + ". " + step.text + (step.done ? " Done." : "")

            Rectangle {
                width: 20
                height: 20
                radius: 10
                color: row.step.done ? Theme.positiveSoft : "transparent"
                border.color: row.step.done ? Theme.positive : Theme.strongLine
                Label {
                    anchors.centerIn: parent
                    visible: !row.step.done
                    text: index + 1
                    color: Theme.softText
                    font.pixelSize: Theme.tiny
                    font.weight: Font.DemiBold
                    Accessible.ignored: true
                }
                Sign {
                    anchors.centerIn: parent
                    visible: row.step.done
                    name: "check"
                    size: 12
                }
            }
            Label {
                id: label
                x: 28
                y: 1
                width: row.width - x
                text: row.step.text
                color: row.step.done ? Theme.faintText : Theme.softText
                wrapMode: Text.WordWrap
                lineHeight: 1.15
                Accessible.ignored: true
            }
        }
    }
}
