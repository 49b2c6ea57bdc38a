// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0

Item {
    id: root

    property Item target
    property Component maker: Item {
        x: 50
        y: 50
        width: 50
        height: 50
    }

    width: 300
    height: 300
    Component.onCompleted: target = maker.createObject(root)
    Popup {
        id: popup

        objectName: "popup"
        width: 40
        height: 40
        attachedItem: root.target
    }
}
