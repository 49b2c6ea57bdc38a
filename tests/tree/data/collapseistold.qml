// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0
import ombrel.data.Core 1.0

// Row 0 has a child and a row after it. All that tells of its collapse writes down where that row
// is and how high the tree is.
Item {
    id: page
    width: 100
    height: 100
    property var log: []
    function note(what) {
        log.push(what + ": " + tree.contentItem.children[2].y + " of " + tree.implicitHeight);
    }

    TreeView {
        id: tree
        objectName: "tree"
        width: 100
        childProperty: "children"
        rootCanCollapse: true
        rootDocuments: [
            Document {
                documentId: "a"
                Document { documentId: "b" }
            },
            Document { documentId: "c" }
        ]
        delegate: Item {
            readonly property bool closed: TreeView.isCollapsedItem
            height: 20
            onClosedChanged: page.note("binding")
            Component.onCompleted: {
                TreeView.collapsedItemChanged.connect(function() { page.note("attached"); });
                collapsedChanged.connect(function() { page.note("entry"); });
            }
        }
    }
}
