// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0
import "../kit"

Demo {
    title: "DocumentDropHandler"
    steps: [
        Step { text: "Drag a document of the type onto the pad."; when: pad.received !== "" },
        Step {
            text: "Change the type and drag again: one document of the type is enough, the others come along."
            when: pad.handler.type !== "text" && pad.zone.containsDrag
        }
    ]
    subject: pad.handler
    stageHeight: 300

    DragZone {
        id: source
        x: 18
        y: 18
        width: parent.width / 2 - 27
        height: parent.height - 36
        DocumentShelf {
            anchors.fill: parent
            onDraggedChanged: source.dragDocuments = dragged
        }
    }
    DocumentPad {
        id: pad
        x: parent.width / 2 + 9
        y: 18
        width: parent.width / 2 - 27
        height: parent.height - 36
        handler.type: "text"
        onHappened: log.note(what)
    }

    editors: [
        TextEditor { target: pad.handler; property: "type" },
        ValueRow { target: pad.zone; property: "containsDrag" },
        ValueRow { label: "dropped"; value: pad.received }
    ]
}
