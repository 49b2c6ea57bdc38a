// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import "../kit"

// One part of the kit on its page: in each of its states, beside one another as far as there is room.
// `part` makes it; what has a `pose` takes the state's name as that.
Column {
    id: specimen

    // The name of its file.
    property string of
    property var states: ["normal"]
    property int cellWidth: 200
    // 0 for the height that the part has by itself.
    property int cellHeight: 36
    property Component part

    width: parent ? parent.width : 0
    spacing: 8

    Label {
        text: specimen.of
        font.pixelSize: Theme.medium
        font.weight: Font.DemiBold
    }
    Flow {
        width: parent.width
        spacing: 16
        Repeater {
            model: specimen.states
            Column {
                width: Math.min(specimen.cellWidth, specimen.width)
                spacing: 4
                Loader {
                    id: place
                    width: parent.width
                    height: specimen.cellHeight > 0 ? specimen.cellHeight : item ? item.implicitHeight : 0
                    sourceComponent: specimen.part
                    enabled: modelData !== "disabled"
                    onLoaded: if (item.pose !== undefined && modelData !== "normal" && enabled) item.pose = modelData
                }
                Label {
                    visible: specimen.states.length > 1
                    text: modelData
                    color: Theme.faintText
                    font.pixelSize: Theme.tiny
                }
            }
        }
    }
}
