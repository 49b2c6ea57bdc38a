// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0
import "../kit"

Demo {
    id: demo
    title: "Draggable"
    steps: [
        Step {
            text: "Drag a card into a column of another scale and rotation: it keeps its size on the screen and stays where it is dropped."
            when: log.last.startsWith("dropped on scale 0")
        },
        Step {
            text: "Let go of the first card beside the columns: it flies home."
            when: log.last === "dragEnded" && !card.taken
        }
    ]
    subject: card
    stageHeight: 300

    // Each in the middle of its third of the stage.
    readonly property real third: stage.width / 3
    readonly property real columnWidth: Math.min(190, third - 20)

    CardColumn {
        id: plain
        x: (demo.third - width) / 2
        y: 30
        width: demo.columnWidth
        title: "scale 1"
        onHappened: log.note(what)
        DragCard {
            id: card
            x: 13
            y: 40
            text: "First card"
            onIsDraggedChanged: log.note("isDragged " + isDragged)
            onDragStarted: log.note("dragStarted")
            onDragEnded: log.note("dragEnded")
        }
        DragCard { x: 13; y: 96; text: "Second card" }
    }
    CardColumn {
        x: (3 * demo.third - width * scale) / 2
        y: 30
        width: demo.columnWidth / scale
        height: 400
        scale: 0.6
        transformOrigin: Item.TopLeft
        title: "scale 0.6"
        onHappened: log.note(what)
    }
    CardColumn {
        x: (5 * demo.third - width) / 2
        y: 30
        width: demo.columnWidth
        scale: 0.8
        rotation: 8
        title: "scale 0.8, turned"
        onHappened: log.note(what)
    }

    editors: [
        TextEditor { target: card; property: "dragData" },
        ValueRow { target: card; property: "isDragged" },
        ValueRow { target: card; property: "scale" },
        ValueRow { target: card; property: "z" }
    ]
}
