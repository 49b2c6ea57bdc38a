// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0
import "../kit"

Demo {
    title: "VideoDropHandler"
    hint: "Takes six kinds of video files. A file called just “mp4”, without a dot, counts as one."
    steps: [
        Step { text: "Drag a video onto the zone."; when: pad.got.length > 0 },
        Step { text: "Drag a picture: the zone would not take it."; when: pad.refuses }
    ]
    stageHeight: 280

    DropPad {
        id: pad
        anchors { fill: parent; margins: 16 }
        invitation: "Drop videos here"
        takes: Array.from(handler.suffixes).join(", ")
        onHappened: log.note(what)
        VideoDropHandler { id: handler }
    }

    editors: [
        ValueRow { label: "suffixes"; value: Array.from(handler.suffixes).join(", ") },
        ValueRow { target: pad.zone; property: "containsDrag" },
        ValueRow { label: "drag.data"; value: pad.countOf(pad.shown) }
    ]
}
