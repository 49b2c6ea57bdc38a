// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0
import "../kit"

Demo {
    id: demo

    title: "DashedBorder"
    steps: [
        Step {
            text: "Drag one of the boxes: the dashes belong to the window and stay where they are while the outline moves over them. Where two outlines meet, their dashes agree."
            when: demo.dragged
        },
        Step { text: "Scale or turn the boxes."; when: scaleEditor.value !== 1 || rotationEditor.value !== 0 }
    ]
    codeValues: ({
        borderColor: String(first.borderColor), width: first.boxWidth, height: first.boxHeight, scale: scaleEditor.value,
        rotation: rotationEditor.value, opacity: opacityEditor.value, visible: visibleEditor.value
    })
    stageHeight: 320

    property bool dragged: false

    Item {
        id: area
        anchors.fill: parent
        clip: true
        Repeater {
            model: 2
            Movable {
                id: box
                name: index === 0 ? "First box" : "Second box"
                onMoved: demo.dragged = true
                x: index === 0 ? 60.5 : 210.5
                y: index === 0 ? 60.5 : 110.5
                width: first.boxWidth
                height: first.boxHeight
                scale: scaleEditor.value
                rotation: rotationEditor.value
                DashedBorder {
                    anchors.fill: parent
                    borderColor: first.borderColor
                    opacity: opacityEditor.value
                    visible: visibleEditor.value
                }
            }
        }
        QtObject {
            id: first
            property color borderColor: "#40A1BB"
            property int boxWidth: 150
            property int boxHeight: 90
            onBorderColorChanged: log.note("borderColorChanged " + borderColor)
        }
    }

    editors: [
        ColorEditor { target: first; property: "borderColor" },
        NumberEditor { label: "width"; target: first; property: "boxWidth"; from: 0; to: 260 },
        NumberEditor { label: "height"; target: first; property: "boxHeight"; from: 0; to: 200 },
        NumberEditor { id: scaleEditor; label: "scale"; value: 1; from: 0.3; to: 2; stepSize: 0.05; onEdited: value = newValue },
        NumberEditor { id: rotationEditor; label: "rotation"; value: 0; from: -45; to: 45; onEdited: value = newValue },
        NumberEditor { id: opacityEditor; label: "opacity"; value: 1; from: 0; to: 1; stepSize: 0.05; onEdited: value = newValue },
        BoolEditor { id: visibleEditor; label: "visible"; value: true; onEdited: value = newValue }
    ]
}
