// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0
import ombrel.data.Core 1.0

// Two roots, the second with a child. Each delegate asks for its attached object.
TreeView {
    width: 100
    height: 100
    childProperty: "children"
    rootCanCollapse: true
    rootDocuments: [
        Document {
            objectName: "one"
            documentId: "one"
        },
        Document {
            objectName: "two"
            documentId: "two"
            Document {
                objectName: "three"
                documentId: "three"
            }
        }
    ]
    delegate: Item {
        height: 20
        enabled: TreeView.isActiveItem
    }
}
