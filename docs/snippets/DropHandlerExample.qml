// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0

// Every signal of a handler, in the order in which a drag makes them come.
Rectangle {
    width: 320
    height: 200
    color: zone.containsDrag ? "#E7F1F4" : "#F8F7F5"

    DropZone {
        id: zone
        anchors.fill: parent

        FileDropHandler {
            onEntered: text.text = drag.data.length + " files are coming in"
            onPositionChanged: text.text = "at " + drag.position.x + ", " + drag.position.y
            onExited: text.text = "gone again"
            onDropped: text.text = "dropped: " + drag.data.join(", ")
        }
    }
    Text {
        id: text
        anchors.fill: parent
        anchors.margins: 16
        text: "Drag a file over this"
        wrapMode: Text.Wrap
    }
}
