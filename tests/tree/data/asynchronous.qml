// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0
import ombrel.data.Core 1.0 as Data

Item {
    width: 300
    height: 300

    Data.Document {
        id: root
    }
    Loader {
        asynchronous: true
        sourceComponent: TreeView {
            property int rebuilds: 0

            objectName: "tree"
            childProperty: "children"
            rootDocuments: [root]
            delegate: Item {}
            onIndexRebuilt: ++rebuilds
        }
    }
}
