// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0

// A tree on a page that counts the keys which the tree leaves to it.
Item {
    property int passedKeys: 0

    width: 300
    height: 300
    Keys.onPressed: ++passedKeys

    TreeView {
        id: tree
        objectName: "tree"
        width: 300
        childProperty: "children"
        delegate: Item {
            property bool active: TreeView.isActiveItem
            height: 30
        }
    }
}
