// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0
import ombrel.data.Core 1.0
import handlers 1.0

Stock {
    id: scene
    TreeView {
        objectName: "subject"
        x: 20
        y: 20
        width: 100
        childProperty: "listed"
        rootCanCollapse: true
        rootDocuments: [scene.documents[0], parentDocument]
        delegate: Told {
            readonly property var row: TreeView
            role: "delegate"
        }
        backgroundDelegate: Told { role: "backgroundDelegate" }
        branchHandleDelegate: Told { role: "branchHandleDelegate" }
    }
    AskedDocument {
        id: parentDocument
        objectName: "parent"
        documentId: "parent"
        context: Context { objectName: "context" }
        listed: [AskedDocument { objectName: "child"; documentId: "child" }]
    }
}
