// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0

// A delegate that makes no item, a background with a z of its own, and a handle.
TreeView {
    id: tree
    objectName: "tree"
    width: 300
    childProperty: "children"
    delegate: QtObject {}
    backgroundDelegate: Rectangle {
        z: 4
    }
    branchHandleDelegate: Item {
        property int n: index
        width: 9
        height: 6
    }
}
