// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0
import ombrel.data.Core 1.0

// Three documents that are dragged one by one, under a label that shrinks away at the end.
DragArea {
    id: source
    width: 320
    height: 200

    Column {
        anchors.fill: parent
        anchors.margins: 16
        spacing: 8
        Repeater {
            model: [first, second, third]
            Rectangle {
                width: 120
                height: 32
                radius: 4
                color: mouse.pressed ? "lightsteelblue" : "gainsboro"
                Text {
                    anchors.centerIn: parent
                    text: modelData.name
                }
                MouseArea {
                    id: mouse
                    anchors.fill: parent
                    onPressed: source.dragDocuments = [modelData]
                }
            }
        }
    }

    Document { id: first; documentId: "1"; name: "Letter"; types: ["text"] }
    Document { id: second; documentId: "2"; name: "Portrait"; types: ["image"] }
    Document { id: third; documentId: "3"; name: "Sunset"; types: ["image"] }

    dragDelegate: Rectangle {
        id: visual
        readonly property bool dropped: DragArea.isDropped
        width: 120
        height: 32
        radius: 4
        color: "lightsteelblue"
        visible: !DragArea.isOutside
        Component.onCompleted: {
            DragArea.hotspot = Qt.point(width / 2, height / 2);
            DragArea.delayRemove = true;
        }
        onDroppedChanged: exit.start()
        Text {
            anchors.centerIn: parent
            text: source.dragDocuments[0].name
        }
        SequentialAnimation {
            id: exit
            NumberAnimation { target: visual; property: "scale"; to: 0; duration: 200 }
            ScriptAction { script: visual.DragArea.delayRemove = false }
        }
    }
}
