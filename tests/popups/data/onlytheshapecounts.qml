// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0

Item {
    id: root

    width: 300
    height: 300

    Item {
        id: half

        width: 20
        height: 100
    }

    Item {
        id: target

        x: 150
        width: 100
        height: 100
        containmentMask: half
    }

    Popup {
        id: popup

        objectName: "popup"
        width: 100
        height: 100
        attachedItem: root
    }
}
