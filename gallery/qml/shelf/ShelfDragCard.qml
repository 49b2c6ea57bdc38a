// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0
import "../kit"

// What follows the pointer while documents are dragged. Where they are taken it shrinks into the
// place; where they are refused it flies back to where it came from.
Item {
    id: card

    property var view
    readonly property bool dropped: DragZone.isDropped
    readonly property bool outside: DragZone.isOutside
    readonly property var documents: DragZone.dragZone ? DragZone.dragZone.dragDocuments : []

    width: 150
    height: 48
    opacity: outside ? 0.4 : 0.94
    Behavior on opacity { NumberAnimation { duration: 120 } }

    Repeater {
        model: Math.max(0, Math.min(2, card.documents.length - 1))
        Rectangle {
            x: 4 * (index + 1)
            y: 4 * (index + 1)
            z: -1 - index
            width: card.width
            height: card.height
            radius: Theme.radius
            color: Theme.panel
            border.color: Theme.strongLine
        }
    }
    Rectangle {
        anchors.fill: parent
        radius: Theme.radius
        color: Theme.panel
        border.width: 2
        border.color: card.view && card.view.refusal !== "" ? Theme.error : Theme.accent
        ShelfPicture {
            x: 6
            y: 6
            width: 46
            height: 36
            document: card.documents.length > 0 ? card.documents[0] : null
        }
        Label {
            anchors { left: parent.left; leftMargin: 60; right: parent.right; rightMargin: 8; verticalCenter: parent.verticalCenter }
            text: card.documents.length === 1 ? Theme.oneLine(card.documents[0].name)
                                              : card.documents.length + " items"
            font.pixelSize: Theme.medium
            elide: Text.ElideMiddle
        }
    }

    Component.onCompleted: {
        DragZone.hotspot = Qt.point(24, 24);
        DragZone.delayRemove = true;
    }
    onDroppedChanged: view && view.taken ? vanish.start() : flight.start()
    SequentialAnimation {
        id: vanish
        NumberAnimation { target: card; property: "scale"; to: 0.1; duration: 140; easing.type: Easing.InCubic }
        ScriptAction { script: card.DragZone.delayRemove = false }
    }
    SequentialAnimation {
        id: flight
        ParallelAnimation {
            NumberAnimation { target: card; property: "x"; to: card.view ? card.view.home.x - 24 : 0; duration: 260; easing.type: Easing.OutCubic }
            NumberAnimation { target: card; property: "y"; to: card.view ? card.view.home.y - 24 : 0; duration: 260; easing.type: Easing.OutCubic }
        }
        NumberAnimation { target: card; property: "opacity"; to: 0; duration: 90 }
        ScriptAction { script: card.DragZone.delayRemove = false }
    }
}
