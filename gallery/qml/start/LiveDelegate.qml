// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0
import ombrel.data.Core 1.0
import "../kit"

// What a drag carries along: the delegate of a real source, made and placed as a drag would do it. It
// follows the pointer, pales outside the window, and spins away when it is let go.
Item {
    id: piece

    property alias motion: motion
    property alias source: source

    // What the delegate has made; null when no drag is played.
    property var card: null

    // Where the pointer is: from 0 on the documents to 1 at its place of rest. An animation of `x` would go
    // where that was when it began, and the window's width may change.
    property real across: 1
    onAcrossChanged: follow()

    function begin() {
        end();
        across = 1;
        pointer.y = 124;
    }
    function end() {
        if (card)
            card.destroy();
        card = null;
    }
    function pickUp() {
        card = delegate.createObject(piece);
        follow();
    }
    function follow() {
        if (!card || card.dropped)
            return;
        const hotspot = card.DragZone.hotspot;
        card.x = pointer.x - hotspot.x;
        card.y = pointer.y - hotspot.y;
        card.outside = !view.contains(mapToItem(view, pointer.x, pointer.y));
    }

    Document { id: letter; documentId: "start:letter"; name: "Letter"; types: ["text"] }
    Document { id: portrait; documentId: "start:portrait"; name: "Portrait"; types: ["image"] }
    Document { id: sunset; documentId: "start:sunset"; name: "Sunset"; types: ["image"] }

    Component {
        id: delegate
        Rectangle {
            id: carried
            // As the drag says; the played one writes them.
            property bool outside: DragZone.isOutside
            property bool dropped: DragZone.isDropped

            z: 1
            width: 120
            height: 36
            radius: Theme.radius
            color: Theme.accent
            opacity: outside ? 0.35 : 1
            Behavior on opacity { NumberAnimation { duration: 200 } }
            Label {
                anchors { right: parent.right; rightMargin: 12; verticalCenter: parent.verticalCenter }
                text: source.dragDocuments.length + " documents"
                font.pixelSize: Theme.small
                color: Theme.accentContrast
                renderType: Text.QtRendering
            }
            Component.onCompleted: {
                DragZone.hotspot = Qt.point(12, 10);
                DragZone.delayRemove = true;
            }
            onDroppedChanged: leaving.start()
            SequentialAnimation {
                id: leaving
                ParallelAnimation {
                    NumberAnimation { target: carried; property: "rotation"; to: 180; duration: 450; easing.type: Easing.InCubic }
                    NumberAnimation { target: carried; property: "scale"; to: 0; duration: 450; easing.type: Easing.InCubic }
                }
                ScriptAction { script: carried.DragZone.delayRemove = false }
            }
        }
    }
    DragZone {
        id: source
        anchors.fill: parent
        dragDocuments: [portrait, sunset]
        dragDelegate: delegate

        Surface {
            id: view
            x: 12
            y: 12
            width: parent.width * 0.6
            height: parent.height - 24
            border.color: Theme.strongLine
            Row {
                x: 8
                y: 8
                spacing: 4
                Repeater {
                    model: 3
                    Rectangle { width: 6; height: 6; radius: 3; color: Theme.strongLine }
                }
            }
            Column {
                x: 12
                y: 24
                spacing: 4
                Repeater {
                    model: [letter, portrait, sunset]
                    DocumentTile {
                        width: view.width - 24
                        height: 32
                        document: modelData
                        inside: source.containsDragDocument(modelData)
                        opacity: piece.card && inside ? 0.4 : 1
                    }
                }
            }
        }
    }
    Sign {
        id: pointer
        z: 2
        x: 64 + piece.across * (piece.width - 104)
        y: 124
        size: 20
        name: "pointer"
        onYChanged: piece.follow()
    }

    SequentialAnimation {
        id: motion
        ScriptAction { script: piece.begin() }
        ParallelAnimation {
            NumberAnimation { target: piece; property: "across"; to: 0; duration: 700; easing.type: Easing.InOutCubic }
            NumberAnimation { target: pointer; property: "y"; to: 86; duration: 700; easing.type: Easing.InOutCubic }
        }
        ScriptAction { script: piece.pickUp() }
        ParallelAnimation {
            NumberAnimation { target: piece; property: "across"; to: 0.85; duration: 1300; easing.type: Easing.InOutCubic }
            NumberAnimation { target: pointer; property: "y"; to: 44; duration: 1300; easing.type: Easing.InOutSine }
        }
        PauseAnimation { duration: 500 }
        ParallelAnimation {
            NumberAnimation { target: piece; property: "across"; to: 0; duration: 1200; easing.type: Easing.InOutCubic }
            NumberAnimation { target: pointer; property: "y"; to: 112; duration: 1200; easing.type: Easing.InOutSine }
        }
        ScriptAction { script: piece.card.dropped = true }
        PauseAnimation { duration: 600 }
        ScriptAction { script: piece.end() }
        ParallelAnimation {
            NumberAnimation { target: piece; property: "across"; to: 1; duration: 500; easing.type: Easing.InOutCubic }
            NumberAnimation { target: pointer; property: "y"; to: 124; duration: 500; easing.type: Easing.InOutCubic }
        }
    }
}
