// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0

// Marks where each drop was, and how many files came with it.
Rectangle {
    id: sheet
    width: 320
    height: 200
    color: "#F8F7F5"

    DropZone {
        anchors.fill: parent
        FileDropHandler {
            // The zone's one DropData is filled anew by the next drag: keep copies.
            onDropped: drops.append({
                "left": drag.position.x,
                "top": drag.position.y,
                "count": drag.data.length,
                "foreign": drag.source === null
            })
        }
    }

    ListModel { id: drops }
    Repeater {
        model: drops
        Text {
            x: model.left
            y: model.top
            text: model.count + (model.foreign ? " from another program" : "")
        }
    }
    Text {
        anchors.centerIn: parent
        visible: drops.count === 0
        text: "Drop files anywhere"
    }
}
