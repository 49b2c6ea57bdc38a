// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0

Item {
    TreeView {
        id: tree
        objectName: "tree"
        width: 300
        childProperty: "children"
        delegate: Item {
            height: 30
            Component.onCompleted: destroyer.actFor(document.name)
        }
    }
}
