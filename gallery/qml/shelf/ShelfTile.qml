// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0
import "../kit"

// A document among the thumbnails: its picture, its label and its name.
Item {
    id: tile

    property QtObject document
    property bool selected: false
    property bool found: false
    property bool current: false
    // A drag that would be dropped into it.
    property bool entered: false
    property bool dimmed: false
    property bool renaming: false
    // Whether all of it can be seen: a frame is drawn above everything, and would be elsewhere, too.
    property bool whole: true
    readonly property bool hovered: mouse.containsMouse
    readonly property bool labelled: document !== null && document.label.a > 0

    signal pressed(var mouse)
    signal clicked(var mouse)
    signal opened(bool name)
    signal renamed(string name)
    signal renameCancelled()

    Accessible.role: Accessible.ListItem
    Accessible.name: document ? Theme.oneLine(document.name) : ""
    Accessible.description: document ? document.types[0] + (picture.problem !== "" ? ", " + picture.problem : "") : ""
    Accessible.selectable: true
    Accessible.selected: selected
    Accessible.focusable: true
    Accessible.focused: current

    Rectangle {
        id: ground
        anchors { fill: parent; margins: 4 }
        radius: Theme.radius
        color: tile.entered ? Theme.positiveSoft : tile.selected ? Theme.accentSoft
             : tile.hovered ? Theme.hover : "transparent"
        border.width: tile.current || tile.entered ? 2 : tile.selected ? 1 : 0
        border.color: tile.entered ? Theme.positive : tile.current ? Theme.focus : Theme.accent
        opacity: tile.dimmed ? 0.45 : 1

        Rectangle {
            id: frame
            anchors { left: parent.left; right: parent.right; top: parent.top; margins: 8 }
            height: width * 3 / 4
            radius: 3
            color: picture.shown ? "transparent" : Theme.sunken
            border.width: picture.shown ? 0 : 1
            border.color: Theme.line
            ShelfPicture {
                id: picture
                anchors.fill: parent
                document: tile.document
            }
        }
        // Few tiles have any, and a tile costs what it is made of.
        Loader {
            anchors.fill: frame
            active: picture.problem !== "" || (tile.document !== null && tile.document.foundInside > 0)
            sourceComponent: Item {
                Label {
                    anchors { bottom: parent.bottom; bottomMargin: 8; horizontalCenter: parent.horizontalCenter }
                    text: picture.problem
                    color: Theme.errorText
                    font.pixelSize: Theme.tiny
                }
                Chip {
                    anchors { right: parent.right; top: parent.top; margins: 4 }
                    visible: tile.document !== null && tile.document.foundInside > 0
                    text: visible ? tile.document.foundInside : ""
                    tone: Theme.positive
                }
            }
        }
        Label {
            id: caption
            readonly property int room: tile.labelled ? 14 : 0
            anchors { top: frame.bottom; topMargin: 8; horizontalCenter: parent.horizontalCenter; horizontalCenterOffset: room / 2 }
            visible: !tile.renaming
            width: Math.min(implicitWidth, frame.width - room)
            // What is left of a name may be narrower than its place.
            horizontalAlignment: tile.labelled ? Text.AlignLeft : Text.AlignHCenter
            text: tile.document ? Theme.oneLine(tile.document.name) : ""
            font.pixelSize: Theme.medium
            elide: Text.ElideMiddle
            color: tile.selected ? Theme.accentText : Theme.text
            Loader {
                anchors { right: parent.left; rightMargin: 4; verticalCenter: parent.verticalCenter }
                active: tile.labelled
                sourceComponent: Rectangle {
                    width: 10
                    height: 10
                    radius: 5
                    color: tile.document ? tile.document.label : "transparent"
                    border.width: 1
                    border.color: Theme.strongLine
                }
            }
        }
    }

    MouseArea {
        id: mouse
        anchors.fill: ground
        hoverEnabled: true
        acceptedButtons: Qt.LeftButton | Qt.RightButton
        onPressed: tile.pressed(mouse)
        onClicked: tile.clicked(mouse)
        onDoubleClicked: if (mouse.button === Qt.LeftButton) tile.opened(mouse.y > frame.y + frame.height)
    }
    Loader {
        x: 6
        width: tile.width - 12
        y: ground.y + frame.y + frame.height + 3
        active: tile.renaming
        sourceComponent: ShelfNameField {
            document: tile.document
            onRenamed: tile.renamed(name)
            onCancelled: tile.renameCancelled()
        }
    }
    Loader {
        anchors.fill: ground
        active: tile.found
        sourceComponent: Frame {
            objectName: "foundFrame"
            visible: tile.whole
            frameWidth: 2
            color: Theme.positive
        }
    }
}
