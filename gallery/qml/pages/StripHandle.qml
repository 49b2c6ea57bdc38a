// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import "../kit"

// The marker on a strip of the colour picker. It stands across the strip at its own origin.
Item {
    id: handle

    property alias color: knob.color
    property int stripHeight: 18

    Rectangle {
        id: knob
        x: -5
        y: -height / 2
        width: 10
        height: handle.stripHeight + 8
        radius: 5
        border.width: 2
        border.color: Theme.paper
        Rectangle {
            z: -1
            anchors.fill: parent
            anchors.margins: -1
            radius: 6
            color: "transparent"
            border.color: Theme.ink
        }
    }
}
