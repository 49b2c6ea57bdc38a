// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0

Item {
    id: page
    property var answers: []
    property Component extra: Item {}

    TreeView {
        objectName: "tree"
        width: 300
        childProperty: "children"
        backgroundDelegate: page.extra
        delegate: Item {
            height: 30
            Component.onDestruction: {
                const made = createDelegateItem(TreeView.BackgroundComponent, null);
                page.answers.push(made === null ? "null" : "an object");
            }
        }
    }
}
