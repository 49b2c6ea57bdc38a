// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0

// A card, and a board of half the scale that takes it in where it is dropped: its size on the screen
// stays. Dropped elsewhere it flies home.
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
        Text { anchors.centerIn: parent; text: "over here"; font.pixelSize: 24 }
        DropZone {
            id: zone
            anchors.fill: parent
            DraggableDropHandler {
                key: "card"
                //! [dropped]
                onDropped: {
                    // With the new parent comes the place at the start of the drag.
                    const card = drag.source;
                    const place = card.mapToItem(board, 0, 0);
                    card.parent = board;
                    card.x = place.x;
                    card.y = place.y;
                    card.home = place;
                }
                //! [dropped]
            }
        }
    }
    Draggable {
        id: card
        property point home: Qt.point(30, 30)
        x: 30
        y: 30
        width: 80
        height: 50
        dragData: "card"
        onDragEnded: flight.start()
        ParallelAnimation {
            id: flight
            NumberAnimation { target: card; property: "x"; to: card.home.x; duration: 200 }
            NumberAnimation { target: card; property: "y"; to: card.home.y; duration: 200 }
        }
        Rectangle {
            anchors.fill: parent
            radius: 4
            color: parent.isDragged ? "lightsteelblue" : "gainsboro"
            Text { anchors.centerIn: parent; text: "Drag me" }
        }
    }
}
