// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0
import "../kit"

Demo {
    id: demo
    title: "DraggableDropHandler"
    steps: [
        Step {
            text: "Drop both cards on the column: it takes the one whose text is its key, to the letter; the other flies home."
            when: log.last.startsWith("dropped on")
        },
        Step { text: "Make the key “Card” and drag again."; when: column.handler.key === "Card" }
    ]
    subject: column.handler
    stageHeight: 300

    CardColumn {
        id: column
        x: Math.max(200, parent.width / 2)
        y: 30
        title: "key: " + handler.key
        onHappened: log.note(what)
    }
    DragCard { x: 30; y: 70; dragData: "card" }
    DragCard { x: 30; y: 130; dragData: "Card" }

    editors: [
        TextEditor { target: column.handler; property: "key" },
        ValueRow { target: column.zone; property: "containsDrag" }
    ]
}
