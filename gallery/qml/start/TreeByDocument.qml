// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0
import ombrel.data.Core 1.0
import "../kit"

// A tree whose branches open and close; what is collapsed is remembered by the document's identifier.
Item {
    id: piece

    property alias motion: motion

    TreeView {
        id: tree
        x: 12
        y: 8
        width: parent.width - 24
        childProperty: "children"
        rootCanCollapse: true
        rootDocuments: [holiday, work]
        delegate: Label {
            height: 22
            leftPadding: 4
            verticalAlignment: Text.AlignVCenter
            text: document ? document.name : ""
            font.pixelSize: Theme.medium
        }
        backgroundDelegate: Rectangle { radius: 4; color: TreeView.isActiveItem ? Theme.accentSoft : "transparent" }
    }
    Document {
        id: holiday
        documentId: "start:holiday"
        name: "Holiday"
        Document { documentId: "start:beach"; name: "Beach" }
        Document { documentId: "start:hills"; name: "Hills" }
    }
    Document {
        id: work
        documentId: "start:work"
        name: "Work"
        Document { documentId: "start:draft"; name: "Draft" }
    }
    SequentialAnimation {
        id: motion
        PauseAnimation { duration: 800 }
        ScriptAction { script: tree.collapseIndex(0) }
        PauseAnimation { duration: 900 }
        ScriptAction { script: tree.rootDocuments = [work, holiday] }
        PauseAnimation { duration: 1200 }
        ScriptAction { script: tree.expandIndex(tree.indexOfDocument(holiday)) }
        PauseAnimation { duration: 900 }
        ScriptAction { script: { tree.rootDocuments = [holiday, work]; tree.activeIndex = 0; } }
        PauseAnimation { duration: 400 }
    }
}
