// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0

// A zone that is a box by itself: what is declared in a zone are its handlers, so its items are
// named as its children.
DropZone {
    id: zone
    width: 240
    height: 120

    //! [children]
    children: [
        Rectangle {
            anchors.fill: parent
            radius: 6
            color: zone.containsDrag ? "#BCDDBF" : "#F8F7F5"
            border.color: "#CCCCCC"
        },
        Text {
            id: label
            anchors.centerIn: parent
            text: "Drop files here"
        }
    ]
    FileDropHandler {
        onDropped: label.text = drag.data.length + " files"
    }
    //! [children]
}
