// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0
import ombrel.Controls.Private 1.0

CheckerBox {
    width: 200
    height: 100
    checkerSize: 10
    lightColor: "white"
    darkColor: "#DDDDDD"

    Rectangle {
        anchors.fill: parent
        color: Qt.rgba(0.25, 0.63, 0.73, 0.5)
    }
}
