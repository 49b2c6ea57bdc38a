// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0
import "../kit"

Demo {
    id: demo
    property point hotspot: Qt.point(20, 16)
    property bool delayRemove: true

    title: "DragArea"
    steps: [
        Step {
            text: "Drag a document onto a pad: none takes it, document handlers take documents from drag zones only."
            when: source.dragActive
        },
        Step { text: "Drag one into another program: it sees the same bytes."; when: log.last === "isOutside true" }
    ]
    subject: source
    stageHeight: 400

    DragArea {
        id: source
        x: 18
        y: 18
        width: parent.width / 2 - 27
        height: parent.height - 36
        dragDelegate: demo.visual
        onDragActiveChanged: log.note("dragActiveChanged " + dragActive)
        DocumentShelf {
            id: shelf
            anchors.fill: parent
            onDraggedChanged: source.dragDocuments = dragged
        }
    }
    Column {
        x: parent.width / 2 + 9
        y: 18
        width: parent.width / 2 - 27
        spacing: 12
        Repeater {
            model: ["image", "video", "text"]
            DocumentPad {
                width: parent.width
                height: (source.height - 24) / 3
                handler.type: modelData
                onHappened: log.note(what)
            }
        }
    }

    property Component visual: Component {
        Rectangle {
            id: card
            readonly property bool outside: DragArea.isOutside
            readonly property bool dropped: DragArea.isDropped
            width: 190
            height: 40
            radius: Theme.radius
            color: Theme.accent
            opacity: outside ? 0.35 : 1
            Behavior on opacity { NumberAnimation { duration: 150 } }
            Component.onCompleted: {
                DragArea.hotspot = demo.hotspot;
                DragArea.delayRemove = demo.delayRemove;
            }
            onOutsideChanged: log.note("isOutside " + outside)
            onDroppedChanged: leave.start()
            Label {
                anchors.centerIn: parent
                color: Theme.accentContrast
                text: source.dragDocuments.length === 1 ? "1 document"
                                                        : source.dragDocuments.length + " documents"
            }
            SequentialAnimation {
                id: leave
                ParallelAnimation {
                    NumberAnimation { target: card; property: "scale"; to: 0.2; duration: 250 }
                    NumberAnimation { target: card; property: "rotation"; to: 30; duration: 250 }
                }
                ScriptAction { script: card.DragArea.delayRemove = false }
            }
        }
    }

    editors: [
        BoolEditor { target: source; property: "dragEnabled" },
        ValueRow { target: source; property: "dragActive" },
        ValueRow { label: "dragDocuments"; value: source.dragDocuments.length },
        BoolEditor { label: "delayRemove"; value: demo.delayRemove; onEdited: demo.delayRemove = newValue },
        PointEditor { label: "hotspot"; value: demo.hotspot; onEdited: demo.hotspot = newValue }
    ]
}
