// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0

// Notes the rows that are active at their completion, and each activeItemChanged() of theirs.
TreeView {
    id: tree
    property var seen: []

    objectName: "tree"
    width: 300
    childProperty: "children"
    delegate: Item {
        property bool active: TreeView.isActiveItem
        height: 30
    }
    backgroundDelegate: Item {
        Component.onCompleted: {
            if (TreeView.isActiveItem)
                tree.seen.push(document.name);
            TreeView.activeItemChanged.connect(() => tree.seen.push("told"));
        }
    }
}
