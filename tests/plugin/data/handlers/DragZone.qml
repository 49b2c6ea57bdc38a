// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0

Stock {
    id: scene
    DragZone {
        objectName: "subject"
        x: 20
        y: 20
        width: 80
        height: 80
        dragDocuments: scene.documents
        dragDelegate: Told {
            objectName: "visual"
            role: "dragDelegate"
            // It asks to stay, and lets go as soon as it may.
            readonly property bool dropped: DragZone.isDropped
            Component.onCompleted: DragZone.delayRemove = true
            onDroppedChanged: DragZone.delayRemove = false
        }
        MouseArea {
            objectName: "pressed"
            anchors.fill: parent
        }
    }
    // What is attached exists without a drag too.
    Item {
        objectName: "still"
        Component.onCompleted: DragZone.hotspot = Qt.point(1, 1)
    }
}
