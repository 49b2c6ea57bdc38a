// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0

// Objects made in a row's context: its parts, an object that lies outside the row, and one made by a
// Loader.
Item {
    width: 300
    height: 300

    Item {
        id: aside
        objectName: "aside"
    }
    TreeView {
        id: tree
        objectName: "tree"
        width: 300
        childProperty: "children"
        delegate: Item {
            height: 30
        }
        backgroundDelegate: Item {
            property Item far: Item {
                parent: aside
            }
            property var made: Loader {
                sourceComponent: Item {}
            }
        }
    }
}
