// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0

// A popup at (0, 0) whose anchor point is (90, 80).
Item {
    width: 200
    height: 200

    Item {
        objectName: "anchor"
        x: 100
        y: 50
    }
    Popup {
        objectName: "popup"
        width: 20
        height: 20
        offset: Qt.point(0, 30)
        hotspot: Qt.point(10, 0)
    }
}
