// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0

// A tree whose background and delegate move where "place" says as soon as they get their row.
TreeView {
    id: tree
    objectName: "tree"
    property Item place
    property bool partsLeave: false
    property Item elsewhere: Item {}
    width: 300
    childProperty: "children"
    delegate: Item {
        height: 30
        onParentChanged: if (tree.partsLeave) parent = tree.place
    }
    backgroundDelegate: Item {
        onParentChanged: if (tree.partsLeave) parent = tree.place
    }
}
