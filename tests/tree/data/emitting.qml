// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0

// A tree whose every signal can be caused from outside.
Item {
    property Component component: Item {}

    width: 300
    height: 300

    TreeView {
        objectName: "tree"
        width: 300
        childProperty: "children"
        rootCanCollapse: true
        delegate: Item {
            property bool active: TreeView.isActiveItem
            height: 30
        }
    }
}
