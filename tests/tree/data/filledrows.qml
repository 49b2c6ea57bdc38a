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
        property string name: document.name
        height: 30
    }
    // Another row for the same entry, loaded from the rows' file once it is asked for.
    backgroundDelegate: Item {
        property alias loader: rowLoader
        Loader {
            id: rowLoader
            width: 200
            active: false
            source: "qrc:/controls/private/TreeViewItem.qml"
        }
    }
}
