// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0

TreeView {
    id: tree
    objectName: "tree"
    width: 300
    childProperty: "children"
    delegate: Item {
        height: 30
    }
    branchHandleDelegate: Item {
        width: 9
        height: 6
    }
    property Component sibling: Item {
        x: 20
        y: -4
        width: 5
        height: 4
    }
}
