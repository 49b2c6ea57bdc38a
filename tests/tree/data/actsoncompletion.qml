// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0

// Rows that call the function "act", where a test has set one, as their background completes.
TreeView {
    id: tree
    property var act: null

    objectName: "tree"
    width: 300
    childProperty: "children"
    delegate: Item {
        height: 30
    }
    backgroundDelegate: Item {
        Component.onCompleted: {
            if (tree.act)
                tree.act(document);
        }
    }
}
