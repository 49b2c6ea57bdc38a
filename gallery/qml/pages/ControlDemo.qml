// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0
import "../kit"

Demo {
    id: demo

    readonly property var edges: [
        { text: "Left", value: Control.LeftEdge }, { text: "Top", value: Control.TopEdge },
        { text: "Right", value: Control.RightEdge }, { text: "Bottom", value: Control.BottomEdge }
    ]
    readonly property int edge: edgeEditor.value

    title: "Control"
    steps: [
        Step { text: "Choose another edge: a side of the panel by its name."; when: demo.edge !== Control.LeftEdge },
        Step {
            text: "Set the weight to 63 or 87: these and 25 have families of their own."
            when: [63, 87].includes(weightEditor.value)
        }
    ]
    logs: false
    stageHeight: 220

    Surface {
        id: panel
        anchors.centerIn: parent
        width: 220
        height: 120
        Rectangle {
            readonly property bool upright: demo.edge === Control.LeftEdge || demo.edge === Control.RightEdge
            x: demo.edge === Control.RightEdge ? panel.width - width : 0
            y: demo.edge === Control.BottomEdge ? panel.height - height : 0
            width: upright ? 5 : panel.width
            height: upright ? panel.height : 5
            color: Theme.accent
        }
        Label {
            anchors.centerIn: parent
            text: Control.fontFamilyForWeight(weightEditor.value)
        }
    }

    editors: [
        ChoiceEditor { id: edgeEditor; label: "edge"; options: demo.edges; value: Control.LeftEdge; onEdited: value = newValue },
        ValueRow { label: "value"; value: demo.edge },
        NumberEditor { id: weightEditor; label: "weight"; value: 25; from: 0; to: 99; onEdited: value = newValue },
        ValueRow { label: "fontFamilyForWeight"; labelWidth: 132; value: Control.fontFamilyForWeight(weightEditor.value) }
    ]
}
