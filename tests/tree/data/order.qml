// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0
import ombrel.data.Core 1.0

// A tree whose parts write down when they are complete and when they come into their row, and the
// background when it gets its place; with the delegate, which comes when the row is there, the
// row's own signals are written down, too.
Item {
    id: page
    width: 100; height: 100
    property var log: []
    function note(entry) { log.push(entry); }

    TreeView {
        objectName: "tree"
        width: 100; height: 100
        childProperty: "children"
        rootCanCollapse: true
        rootDocuments: [Document { documentId: "a" }, Document { documentId: "b" }]
        backgroundDelegate: Item {
            Component.onCompleted: page.note("background of " + document.documentId)
            onParentChanged: {
                if (!parent)
                    return;
                page.note("background in its row");
                parent.backgroundItemChanged.connect(function() { page.note("it is named"); });
            }
            onWidthChanged: page.note("it fills " + width)
            onZChanged: page.note("it goes below")
        }
        delegate: Item {
            height: 20
            Component.onCompleted: page.note("delegate of " + document.documentId)
            onParentChanged: {
                if (!parent)
                    return;
                const id = document.documentId;
                page.note("delegate in its row");
                parent.predecessorChanged.connect(function() { page.note(id + " follows"); });
                parent.layoutRequired.connect(function() { page.note(id + " laid out"); });
            }
        }
        branchHandleDelegate: Item {
            Component.onCompleted: page.note("handle of " + document.documentId)
            onParentChanged: if (parent) page.note("handle in its row")
        }
        onActiveIndexChanged: page.note("active row " + activeIndex)
        onIndexRebuilt: page.note("rebuilt")
    }
}
