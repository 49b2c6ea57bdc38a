// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0

Item {
    id: root

    width: 300
    height: 300

    Popup {
        id: popup

        objectName: "popup"
        width: 40
        height: 40
        offset: Qt.point(3, 3)
        attachedItem: inner

        Item {
            id: inner

            x: 60
            width: 20
            height: 20
        }
    }
}
