// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0
import ombrel.data.Core 1.0

Stock {
    id: scene
    TreeView {
        objectName: "subject"
        x: 20
        y: 20
        width: 100
        childProperty: "children"
        rootCanCollapse: true
        rootDocuments: [scene.documents[0], parentDocument]
        delegate: Text {
            readonly property var row: TreeView
            text: document.documentId
        }
        backgroundDelegate: Item { }
    }
    Document {
        id: parentDocument
        documentId: "parent"
        Document { documentId: "child" }
    }
}
