// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import "../kit"

// What a row of the tree shows of its folder: a sign, the name or the field that edits it, a label's
// colour and how much a search found there.
Item {
    id: row

    property QtObject document
    property bool active: false
    property bool edited: false

    signal renamed(string name)
    signal renameCancelled()

    Image {
        id: sign
        x: 2
        anchors.verticalCenter: parent.verticalCenter
        width: 18
        height: 18
        sourceSize: Qt.size(18, 18)
        source: "../kit/types/" + (row.document && !row.document.readable ? "locked" : "folder") + ".svg"
    }
    Label {
        anchors { left: sign.right; leftMargin: 8; right: marks.left; rightMargin: 4 }
        anchors.verticalCenter: parent.verticalCenter
        visible: !row.edited
        text: row.document ? Theme.oneLine(row.document.name) : ""
        font.pixelSize: Theme.medium
        font.weight: row.active ? Font.DemiBold : Font.Normal
        color: !row.document || row.document.readable ? Theme.text : Theme.errorText
    }
    // Few rows have any.
    Loader {
        id: marks
        anchors { right: parent.right; rightMargin: 16; verticalCenter: parent.verticalCenter }
        active: row.document !== null && (row.document.label.a > 0 || row.document.foundInside > 0)
        sourceComponent: Row {
            spacing: 4
            Rectangle {
                anchors.verticalCenter: parent.verticalCenter
                visible: row.document !== null && row.document.label.a > 0
                width: 10
                height: 10
                radius: 5
                color: row.document ? row.document.label : "transparent"
                border.color: Theme.strongLine
            }
            Chip {
                visible: row.document !== null && row.document.foundInside > 0
                text: visible ? row.document.foundInside : ""
                tone: Theme.positive
            }
        }
    }
    Loader {
        anchors { left: sign.right; leftMargin: 4; right: parent.right; rightMargin: 16 }
        anchors.verticalCenter: parent.verticalCenter
        active: row.edited
        sourceComponent: ShelfNameField {
            document: row.document
            onRenamed: row.renamed(name)
            onCancelled: row.renameCancelled()
        }
    }
}
