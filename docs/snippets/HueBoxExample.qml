// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0
import ombrel.Controls.Private 1.0

Item {
    width: 240
    height: 60

    HueBox {
        id: strip
        x: 20
        y: 20
        width: 200
        height: 20
        sliderDelegate: Item {
            Rectangle {
                x: -3
                y: -12
                width: 6
                height: 24
                border.color: "black"
                color: Qt.hsva(strip.hue / 359, 1, 1, 1)
            }
        }
        Component.onCompleted: hue = 200
    }
}
