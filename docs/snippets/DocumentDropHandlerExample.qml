// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0
import ombrel.data.Core 1.0

// A document, and a zone that takes images.
Row {
    width: 320
    height: 160

    DragZone {
        width: 160
        height: 160
        dragDocuments: Document { documentId: "1"; name: "Portrait"; types: ["image"] }
        Rectangle {
            anchors.centerIn: parent
            width: 100
            height: 32
            radius: 4
            color: "gainsboro"
            Text { anchors.centerIn: parent; text: "A picture" }
            MouseArea { anchors.fill: parent }
        }
    }
    Rectangle {
        width: 160
        height: 160
        color: zone.containsDrag ? "lightsteelblue" : "whitesmoke"
        Text {
            id: label
            anchors.centerIn: parent
            text: "Images"
        }
        //! [zone]
        DropZone {
            id: zone
            anchors.fill: parent
            DocumentDropHandler {
                type: "image"
                onDropped: label.text = drag.source.dragDocuments[0].name
            }
        }
        //! [zone]
    }
}
