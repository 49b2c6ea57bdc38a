// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0
import "../kit"

Demo {
    id: demo
    title: "DraggableDropHandler"
    hint: "A column takes the card whose text is its key, to the letter; the other one flies home. Change the key and "
          + "drag again."
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
        ValueRow { target: column.zone; property: "containsDrag" },
        EventLog { id: log; lines: 6 }
    ]
}
