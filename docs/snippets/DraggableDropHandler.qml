// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0

// A card, and a board of half the scale that takes it in: its size on the screen stays.
Item {
    width: 320
    height: 200

    Rectangle {
        id: board
        x: 160
        width: 320
        height: 400
        scale: 0.5
        transformOrigin: Item.TopLeft
        color: zone.containsDrag ? "lightsteelblue" : "whitesmoke"
        DropZone {
            id: zone
            anchors.fill: parent
            DraggableDropHandler {
                key: "card"
                onDropped: drag.source.parent = board
            }
        }
    }
    Draggable {
        x: 30
        y: 30
        width: 80
        height: 50
        dragData: "card"
        Rectangle {
            anchors.fill: parent
            radius: 4
            color: parent.isDragged ? "lightsteelblue" : "gainsboro"
        }
    }
}
