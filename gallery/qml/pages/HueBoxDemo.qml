// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0
import ombrel.Controls.Private 1.0
import "../kit"

Demo {
    title: "HueBox"
    steps: [
        Step {
            text: "Drag beyond an end: the hue stays there."
            when: log.last === "hueChanged 0" || log.last === "hueChanged 359"
        },
        Step {
            text: "Take the slider away and bring it back: a new one stands at hue × width, far to the right, until the hue changes."
            when: !sliderEditor.value
        }
    ]
    subject: box
    codeValues: ({ hue: undefined, "Component.onCompleted": { code: "hue = " + box.hue } })
    stageHeight: 220

    Item {
        anchors.fill: parent
        anchors.margins: 40
        clip: true
        KeyStop {
            name: "Hue: " + box.hue
            x: 10
            y: (parent.height - height) / 2
            width: parent.width - 20
            height: box.height
            HueBox {
                id: box
                focus: true
                width: parent.width
                height: 24
                Keys.onLeftPressed: --hue
                Keys.onRightPressed: ++hue
                sliderDelegate: sliderEditor.value ? slider : null
                onHueChanged: log.note("hueChanged " + hue)
                onSliderDelegateChanged: log.note("sliderDelegateChanged")
            }
        }
    }
    Component {
        id: slider
        Item {
            Rectangle {
                x: -4
                y: -20
                width: 8
                height: 40
                radius: 4
                color: Qt.hsva(box.hue / 359, 1, 1, 1)
                border.width: 2
                border.color: Theme.ink
            }
        }
    }

    editors: [
        NumberEditor { target: box; property: "hue"; from: 0; to: 359 },
        BoolEditor { id: sliderEditor; label: "sliderDelegate"; value: true; onEdited: value = newValue },
        NumberEditor { target: box; property: "height"; from: 4; to: 60 },
        ValueRow { target: box; property: "activeFocus" }
    ]
}
