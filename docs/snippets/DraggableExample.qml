// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0

// A card that goes home when it is let go.
Item {
    width: 320
    height: 200

    Draggable {
        id: card
        x: 30
        y: 30
        width: 80
        height: 50
        dragData: "card"
        onDragEnded: {
            x = 30;
            y = 30;
        }
        Rectangle {
            anchors.fill: parent
            radius: 4
            color: card.isDragged ? "lightsteelblue" : "gainsboro"
            Text { anchors.centerIn: parent; text: "Drag me" }
        }
    }
}
