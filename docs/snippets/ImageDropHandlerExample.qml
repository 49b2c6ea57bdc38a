// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0

// Shows the first picture that is dropped, and a frame at the pointer while it is dragged.
Rectangle {
    width: 320
    height: 240

    Image {
        id: image
        anchors.fill: parent
        asynchronous: true
        fillMode: Image.PreserveAspectFit
    }
    Rectangle {
        id: pointer
        visible: zone.containsDrag
        width: 24
        height: 24
        radius: 12
        color: "transparent"
        border.color: "#40A1BB"
    }

    DropZone {
        id: zone
        anchors.fill: parent
        ImageDropHandler {
            onPositionChanged: {
                pointer.x = drag.position.x - 12;
                pointer.y = drag.position.y - 12;
            }
            onDropped: image.source = drag.data[0]
        }
    }
}
