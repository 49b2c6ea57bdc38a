// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0
import ombrel.data.Core 1.0

// A zone of documents beside a drop area and a drop zone. The tests put an area into the zone's place
// by its names.
Item {
    width: 420; height: 300
    property int drops: 0
    property var lastSource: null
    property var lastDocuments: []
    property bool dataUndefined: false
    Document { id: a; objectName: "a"; documentId: "a"; types: ["image"] }
    Document { id: b; objectName: "b";  types: ["text"] }
    Document { id: c; objectName: "c"; types: ["text", "image"] }
    DragZone {
        id: source
        objectName: "source"
        x: 10; y: 10; width: 150; height: 200
        dragDocuments: [a, b, c]
        dragDelegate: Component {
            Rectangle {
                objectName: "visual"
                width: 40; height: 20
                property bool outside: DragZone.isOutside
                property bool dropped: DragZone.isDropped
                property var owner: DragZone.dragZone
                function letGo() { DragZone.delayRemove = false }
                Component.onCompleted: {
                    DragZone.hotspot = Qt.point(5, 6)
                    DragZone.delayRemove = source.state === "delayed"
                }
            }
        }
        Loader {
            objectName: "loader"
            sourceComponent: MouseArea { objectName: "row"; width: 150; height: 100 }
        }
        MouseArea { objectName: "other"; y: 100; width: 150; height: 100 }
    }
    DropArea {
        id: any
        objectName: "any"
        x: 200; y: 160; width: 200; height: 130
        onDropped: drops++
    }
    DropZone {
        objectName: "zone"
        x: 200; y: 10; width: 200; height: 140
        DocumentDropHandler {
            objectName: "handler"
            type: "text"
            onDropped: {
                drops++
                lastSource = drag.source
                dataUndefined = drag.data === undefined
                var names = []
                for (var i = 0; i < drag.source.dragDocuments.length; ++i)
                    names.push(drag.source.dragDocuments[i].objectName)
                lastDocuments = names
            }
        }
    }
}
