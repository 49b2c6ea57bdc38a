// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0

Item {
    width: 300
    height: 200

    PopupAnchorItem {
        objectName: "anchor"
        popupVisible: true
        x: 20
        y: 30

        Rectangle {
            width: 50
            height: 50
            color: "orange"
        }
    }
}
