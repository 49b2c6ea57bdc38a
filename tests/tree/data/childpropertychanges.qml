// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0
import ombrel.data.Core 1.0

// Documents with children in two lists. The delegate of "a" has the view take the other list, once
// a test has asked for it.
TreeView {
    id: tree
    property bool changes: false

    objectName: "tree"
    width: 300
    childProperty: "children"
    rootCanCollapse: true
    rootDocuments: [
        Document {
            name: "a"
            property list<Document> other: [Document { name: "ao" }]
            Document { name: "b" }
            Document { name: "b2" }
        },
        Document {
            name: "c"
            property list<Document> other: [Document { name: "co" }]
            property list<Document> none
            Document { name: "cc" }
        }
    ]
    delegate: Item {
        height: 30
        Component.onCompleted: {
            if (tree.changes && document.name === "a")
                tree.childProperty = "other";
        }
    }
}
