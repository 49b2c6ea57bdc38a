// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0

Item {
    width: 100
    height: 100

    Popup {
        objectName: "popup"
        width: 100
        height: 100

        Rectangle {
            anchors.fill: parent
            color: "orange"
        }
    }

    Rectangle {
        anchors.fill: parent
        z: 65539
        color: "blue"
    }
}
