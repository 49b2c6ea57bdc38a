// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0

// Delegates that run all deferred deletions at their end, and are counted.
Item {
    id: above
    property int ends: 0

    TreeView {
        objectName: "tree"
        childProperty: "children"
        delegate: Item {
            Component.onDestruction: {
                ++above.ends;
                destroyer.deleteDeferred();
            }
        }
    }
}
