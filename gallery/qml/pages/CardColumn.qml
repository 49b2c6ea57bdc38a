// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0
import "../kit"

// A column that takes cards by their key and becomes their parent.
Rectangle {
    id: column

    property alias handler: handler
    property alias zone: zone
    property string title
    signal happened(string what)

    width: 150
    height: 240
    radius: Theme.radius
    color: zone.containsDrag ? Theme.accentSoft : Theme.panel
    border.color: zone.containsDrag ? Theme.accent : Theme.line
    Label {
        x: 10
        y: 8
        text: column.title
        // Scaled and turned, a font's own rendering would come apart.
        renderType: Text.QtRendering
        color: Theme.faintText
        font.pixelSize: Theme.small / column.scale
    }
    DropZone {
        id: zone
        anchors.fill: parent
        DraggableDropHandler {
            id: handler
            key: "card"
            onDropped: {
                drag.source.settle(column);
                column.happened("dropped on " + column.title);
            }
        }
    }
}
