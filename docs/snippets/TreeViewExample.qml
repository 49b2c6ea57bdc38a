// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0
import ombrel.data.Core 1.0

TreeView {
    id: tree
    width: 240
    height: 120
    childProperty: "children"
    rootCanCollapse: true
    rootDocuments: [
        Document {
            documentId: "holiday"; name: "Holiday"
            Document { documentId: "beach"; name: "Beach" }
            Document { documentId: "hills"; name: "Hills" }
        },
        Document { documentId: "work"; name: "Work" }
    ]

    // In a row: level, index, document, and what is attached of the row.
    delegate: Text {
        height: 24
        verticalAlignment: Text.AlignVCenter
        text: document.name
        font.bold: TreeView.isCollapsedItem
    }
    backgroundDelegate: Rectangle {
        color: TreeView.isActiveItem ? "#BCDDBF" : "transparent"
    }

    onEditRequested: console.debug("edit", activeDocument ? activeDocument.name : "nothing")
}
