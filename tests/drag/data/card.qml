// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0

// A card that is dragged from the left onto a zone at the right, which holds a parent of twice the
// scale.
Item {
    width: 420; height: 300
    property string took
    property var payload
    Item {
        objectName: "left"
        x: 10; y: 10; width: 180; height: 280
        Draggable {
            id: card
            objectName: "card"
            x: 20; y: 30; z: 3
            width: 60; height: 40
            dragData: "Card"
            Rectangle { anchors.fill: parent; color: "teal" }
        }
    }
    Item {
        id: right
        objectName: "right"
        x: 210; y: 10; width: 90; height: 140
        scale: 2
        transformOrigin: Item.TopLeft
    }
    DropZone {
        objectName: "zone"
        x: 210; y: 10; width: 180; height: 280
        DraggableDropHandler {
            objectName: "handler"
            key: "Card"
            onDropped: {
                took += "dropped "
                payload = drag.data
                if (drag.source.state === "adopt")
                    drag.source.parent = right
            }
        }
    }
}
