// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0

// Notes in its log which delegates become visible and in which order they end.
Item {
    property string log

    TreeView {
        id: tree
        objectName: "tree"
        width: 300
        childProperty: "children"
        rootCanCollapse: true
        delegate: Item {
            property string name: document.name
            property real shown: parent ? parent.opacity : 0
            height: 30
            onShownChanged: {
                if (shown)
                    log += name + " is shown ";
            }
            Component.onDestruction: log += name + " "
        }
    }
}
