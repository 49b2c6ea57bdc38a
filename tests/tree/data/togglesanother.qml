// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0

// Row 0 toggles row 1 from the signal of its own collapse.
TreeView {
    id: tree
    objectName: "tree"
    width: 300
    childProperty: "children"
    rootCanCollapse: true
    delegate: Item {
        height: 30
    }
    backgroundDelegate: Item {
        Component.onCompleted: TreeView.collapsedItemChanged.connect(() => {
            if (index === 0)
                tree.toggleIndex(1);
        })
    }
}
