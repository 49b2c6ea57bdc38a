// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0
import "../kit"

Demo {
    title: "ImageDropHandler"
    hint: "Takes what this system can read as an image, told by the suffix."
    steps: [
        Step { text: "Drag a picture onto the zone."; when: pad.got.length > 0 },
        Step { text: "Drag all files of the folder: only the pictures come in."; when: pad.offered.length > 1 }
    ]
    stageHeight: 280

    DropPad {
        id: pad
        anchors { fill: parent; margins: 16 }
        invitation: "Drop images here"
        takes: Array.from(handler.suffixes).join(", ")
        onHappened: log.note(what)
        ImageDropHandler { id: handler }
    }

    editors: [
        ValueRow { label: "suffixes"; value: Array.from(handler.suffixes).join(", ") },
        ValueRow { target: pad.zone; property: "containsDrag" },
        ValueRow { label: "drag.data"; value: pad.countOf(pad.shown) }
    ]
}
