// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import handlers 1.0

Stock {
    FilterItem {
        objectName: "subject"
        x: 20
        y: 20
        width: 80
        height: 80
        MouseArea {
            objectName: "pressed"
            anchors.fill: parent
        }
    }
}
