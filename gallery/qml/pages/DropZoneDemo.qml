// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0
import "../kit"

Demo {
    id: demo

    readonly property var orders: ({ "images, videos, any file": [images, videos, any],
                                     "any file, images, videos": [any, images, videos],
                                     "images only": [images] })

    title: "DropZone"
    steps: [
        Step {
            text: "Drag a picture over the zone and see which of the three handlers takes it."
            when: pad.taker === images
        },
        Step { text: "Then a text: the last handler takes that."; when: pad.taker === any },
        Step { text: "Put “any file” first: it takes everything."; when: order.value.startsWith("any") && pad.over }
    ]
    subject: pad.zone
    stageHeight: 380

    Row {
        id: lanes
        x: 18
        y: 18
        width: parent.width - 36
        spacing: 12
        Repeater {
            model: pad.zone.dropHandlers.length
            Rectangle {
                readonly property DropHandler handler: pad.zone.dropHandlers[index] || null
                readonly property bool active: handler !== null && pad.taker === handler
                width: (lanes.width - (lanes.spacing * (pad.zone.dropHandlers.length - 1)))
                       / Math.max(1, pad.zone.dropHandlers.length)
                height: 40
                radius: Theme.radius
                color: !active ? Theme.panel : pad.over ? Theme.accent : Theme.accentSoft
                border.color: active ? Theme.accent : Theme.line
                Behavior on color { ColorAnimation { duration: 120 } }
                Row {
                    anchors.centerIn: parent
                    spacing: 8
                    Label {
                        text: index + 1
                        color: parent.parent.active && pad.over ? Theme.accentContrast : Theme.faintText
                        font.weight: Font.DemiBold
                    }
                    Label {
                        text: parent.parent.handler === images ? "images"
                            : parent.parent.handler === videos ? "videos" : "any file"
                        color: parent.parent.active && pad.over ? Theme.accentContrast : Theme.text
                    }
                }
            }
        }
    }

    DropPad {
        id: pad
        anchors { fill: parent; margins: 16; topMargin: 72 }
        takes: "Images, videos, and whatever else comes"
        onHappened: log.note(what)

        ImageDropHandler { id: images }
        VideoDropHandler { id: videos }
        FileDropHandler { id: any }
    }

    editors: [
        ChoiceEditor {
            id: order
            label: "dropHandlers"
            options: Object.keys(demo.orders)
            value: options[0]
            onEdited: {
                value = newValue;
                pad.taker = null;
                pad.zone.dropHandlers = demo.orders[newValue];
            }
        },
        BoolEditor { target: pad.zone; property: "enabled" },
        ValueRow { target: pad.zone; property: "containsDrag" },
        ValueRow { label: "drag.position"; value: Math.round(pad.position.x) + ", " + Math.round(pad.position.y) },
        ValueRow { label: "drag.data"; value: pad.countOf(pad.shown) }
    ]
}
