// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0
import ombrel.data.Core 1.0

// A tree whose delegates write down, when they come into their row, how high the row is.
Item {
    id: page
    width: 100; height: 100
    property var log: []

    TreeView {
        objectName: "tree"
        width: 100; height: 100
        childProperty: "children"
        rootCanCollapse: true
        rootDocuments: Document {
            documentId: "root"
            children: Document { documentId: "child" }
        }
        delegate: Item {
            height: 20
            onParentChanged: if (parent) page.log.push(document.documentId + " in " + parent.height)
        }
    }
}
