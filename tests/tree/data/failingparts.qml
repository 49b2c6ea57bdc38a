// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0

// A delegate that cannot be loaded, and two parts that are no items.
TreeView {
    id: tree
    objectName: "tree"
    width: 300
    childProperty: "children"
    delegate: Qt.createComponent("there-is-none.qml")
    backgroundDelegate: Timer {}
    branchHandleDelegate: QtObject {}
}
