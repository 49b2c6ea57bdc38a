// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0
import ombrel.data.Core 1.0

// Two sources, one inside the other, over the same row, beside an area that takes anything.
Item {
    id: root
    width: 420
    height: 300

    property string outer
    property int drops: 0

    Document {
        id: a
        documentId: "a"
    }
    Loader {
        sourceComponent: ({
                zone: zoneComponent,
                area: areaComponent,
                draggable: draggableComponent
            })[root.outer] || null
    }
    Component {
        id: zoneComponent
        DragZone {
            objectName: "outer"
            width: 150
            height: 150
            dragDocuments: [a]
            DragZone {
                objectName: "inner"
                width: 150
                height: 150
                dragDocuments: [a]
                MouseArea {
                    objectName: "row"
                    width: 150
                    height: 100
                }
            }
        }
    }
    Component {
        id: areaComponent
        DragArea {
            objectName: "outer"
            width: 150
            height: 150
            dragDocuments: [a]
            DragZone {
                objectName: "inner"
                width: 150
                height: 150
                dragDocuments: [a]
                MouseArea {
                    objectName: "row"
                    width: 150
                    height: 100
                }
            }
        }
    }
    Component {
        id: draggableComponent
        Draggable {
            objectName: "outer"
            width: 150
            height: 150
            onDragEnded: {
                x = 0;
                y = 0;
            }
            DragZone {
                objectName: "inner"
                width: 150
                height: 150
                dragDocuments: [a]
                MouseArea {
                    objectName: "row"
                    width: 150
                    height: 100
                }
            }
        }
    }
    DropArea {
        objectName: "any"
        x: 200
        y: 160
        width: 200
        height: 130
        onDropped: ++root.drops
    }
}
