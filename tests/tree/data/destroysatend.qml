// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0

// A view to be made by the test. The delegate of its row number "fatal" calls the destroyer at its end.
Item {
    property Component view: TreeView {
        width: 50
        childProperty: "children"
        delegate: Item {
            property int row: index
            height: 20
            Component.onDestruction: {
                if (row === fatal)
                    destroyer.act();
            }
        }
    }
}
