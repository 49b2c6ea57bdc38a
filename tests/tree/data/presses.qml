// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0

// Delegates that note each press, with the row that is active by then.
Item {
    width: 300
    height: 300

    TreeView {
        id: tree
        property var presses: []

        objectName: "tree"
        width: 300
        childProperty: "children"
        delegate: MouseArea {
            height: 30
            onPressed: tree.presses.push(document.name + tree.activeIndex)
        }
    }
}
