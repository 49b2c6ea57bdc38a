// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0
import ombrel.Controls.Private 1.0
import "../kit"

Demo {
    title: "SaturationValueBox"
    steps: [
        Step {
            text: "Drag in the square and out of it: value grows to the right, saturation upwards; the value is announced first."
            when: log.last.startsWith("saturationChanged")
        },
        Step { text: "Take the cross away."; when: !crossEditor.value }
    ]
    subject: box
    stageHeight: 260

    KeyStop {
        name: "Saturation and value: " + box.saturation + ", " + box.value
        anchors.centerIn: parent
        width: 240
        height: 180
        SaturationValueBox {
            id: box
            focus: true
            anchors.fill: parent
            Keys.onLeftPressed: --value
            Keys.onRightPressed: ++value
            Keys.onUpPressed: ++saturation
            Keys.onDownPressed: --saturation
            hue: 195
            crossHairDelegate: crossEditor.value ? cross : null
            onValueChanged: log.note("valueChanged " + value)
            onSaturationChanged: log.note("saturationChanged " + saturation)
            onHueChanged: log.note("hueChanged " + hue)
        }
    }
    Component {
        id: cross
        Item {
            Rectangle { x: -10; y: -1; width: 20; height: 2; color: Theme.paper; }
            Rectangle { x: -1; y: -10; width: 2; height: 20; color: Theme.paper }
            Rectangle { x: -5; y: -5; width: 10; height: 10; radius: 5; color: "transparent"; border.color: Theme.ink }
        }
    }

    editors: [
        NumberEditor { target: box; property: "hue"; from: 0; to: 359 },
        NumberEditor { target: box; property: "saturation"; from: 0; to: 255 },
        NumberEditor { target: box; property: "value"; from: 0; to: 255 },
        BoolEditor { id: crossEditor; label: "crossHairDelegate"; value: true; onEdited: value = newValue }
    ]
}
